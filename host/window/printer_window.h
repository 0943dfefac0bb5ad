// The window of one printer: its sheet, where it opens, its status line, and storing what is
// applied without overwriting unseen what somebody else stored while the window was open.
#pragma once

#include <host/controls/session.h>
#include <host/index/setting_names.h>
#include <host/window/window_place.h>

namespace kvhost {

class PrinterWindow {
 public:
    // The session is open and has its module.
    explicit PrinterWindow(Session& session);
    // Until the person closes it.
    ExitStatus Run();

 private:
    // Says which stored values the rules in force do not allow.
    void TellPutBack() const;
    Applied Apply(HWND sheet, bool closing);
    // What a person decides about settings that somebody else stored.
    enum class Choice { kStoreMine, kKeepTheirs, kStay };
    Choice Ask(HWND sheet, const Record& theirs) const;
    Applied KeepTheirs(HWND sheet, const Record& theirs, bool closing);
    void TellFaults(HWND sheet) const;

    Session& session_;
    SettingNames names_;
    bool stored_ = true;      // the last attempt to store succeeded
    bool openAgain_ = false;  // to show what somebody else stored
    WindowPlace place_;
};

}  // namespace kvhost
