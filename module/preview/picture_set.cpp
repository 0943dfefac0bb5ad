// Loading and combining of the Paper View's pictures.
#include "preview/picture_set.h"

namespace kvui {

PictureSet::PictureSet(HINSTANCE module, HDC like)
    : module_(module), source_(CreateCompatibleDC(like)) {}

PictureSet::~PictureSet() {
    if (before_ != nullptr) SelectObject(source_, before_);
    if (source_ != nullptr) DeleteDC(source_);
    for (int i = 0; i < count_; ++i) DeleteObject(loaded_[i].bitmap);
}

const PictureSet::Loaded* PictureSet::Load(WORD id) {
    for (int i = 0; i < count_; ++i) {
        if (loaded_[i].id == id) return &loaded_[i];
    }
    if (count_ == kMost || source_ == nullptr) return nullptr;
    const HBITMAP bitmap = LoadBitmapA(module_, MAKEINTRESOURCEA(id));
    BITMAP description{};
    if (bitmap == nullptr) return nullptr;
    GetObjectA(bitmap, sizeof description, &description);
    loaded_[count_] = {id, bitmap, {description.bmWidth, description.bmHeight}};
    return &loaded_[count_++];
}

bool PictureSet::SizeOf(PictureId id, SIZE& size) {
    const Loaded* picture = Load(id.picture);
    if (picture == nullptr || (id.mask != 0 && Load(id.mask) == nullptr)) return false;
    size = picture->size;
    return true;
}

void PictureSet::Combine(HDC dc, WORD id, int x, int y, DWORD operation) {
    const Loaded* picture = Load(id);
    if (picture == nullptr) return;
    const HGDIOBJ before = SelectObject(source_, picture->bitmap);
    if (before_ == nullptr) before_ = before;
    BitBlt(dc, x, y, picture->size.cx, picture->size.cy, source_, 0, 0, operation);
}

void PictureSet::Draw(HDC dc, PictureId id, int x, int y) {
    if (id.mask != 0) Combine(dc, id.mask, x, y, SRCAND);
    Combine(dc, id.picture, x, y, id.mask != 0 ? SRCINVERT : SRCAND);
}

}  // namespace kvui
