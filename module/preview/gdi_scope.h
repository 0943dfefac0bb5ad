// Graphics objects that are given back at the end of a block; used by the painters of this folder.
#pragma once

#include <windows.h>

namespace kvui {

template <typename Handle>
class OwnedObject {
   public:
    explicit OwnedObject(Handle handle) : handle_(handle) {}
    ~OwnedObject() {
        if (handle_ != nullptr) DeleteObject(handle_);
    }
    OwnedObject(const OwnedObject&) = delete;
    OwnedObject& operator=(const OwnedObject&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }
    Handle get() const { return handle_; }

   private:
    Handle handle_;
};

class MemoryDc {
   public:
    explicit MemoryDc(HDC like) : dc_(CreateCompatibleDC(like)) {}
    ~MemoryDc() {
        if (dc_ != nullptr) DeleteDC(dc_);
    }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    explicit operator bool() const { return dc_ != nullptr; }
    HDC get() const { return dc_; }

   private:
    HDC dc_;
};

// Selects an object and brings the one before back.
class Selection {
   public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~Selection() {
        if (before_ != nullptr) SelectObject(dc_, before_);
    }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

   private:
    HDC dc_;
    HGDIOBJ before_;
};

// Brings the whole state of a device context back: clip, colours, alignment, objects.
class DcState {
   public:
    explicit DcState(HDC dc) : dc_(dc), level_(SaveDC(dc)) {}
    ~DcState() { RestoreDC(dc_, level_); }
    DcState(const DcState&) = delete;
    DcState& operator=(const DcState&) = delete;

   private:
    HDC dc_;
    int level_;
};

}  // namespace kvui
