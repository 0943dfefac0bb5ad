// The pictures of one paint: loaded when first asked for, released at the paint's end. Nothing is kept
// between paints.
#pragma once

#include "preview/paper_plan.h"

namespace kvui {

class PictureSet : public PictureSizes {
   public:
    PictureSet(HINSTANCE module, HDC like);
    ~PictureSet() override;
    PictureSet(const PictureSet&) = delete;
    PictureSet& operator=(const PictureSet&) = delete;

    bool SizeOf(PictureId id, SIZE& size) override;
    // With a mask: the mask by AND, then the picture by XOR. Without one: by AND.
    void Draw(HDC dc, PictureId id, int x, int y);

   private:
    struct Loaded {
        WORD id;
        HBITMAP bitmap;
        SIZE size;
    };
    const Loaded* Load(WORD id);
    void Combine(HDC dc, WORD id, int x, int y, DWORD operation);

    // Two for each layer and the two of the labels' arrow.
    static constexpr int kMost = 2 * kMostLayers + 2;
    HINSTANCE module_;
    HDC source_;
    HGDIOBJ before_ = nullptr;  // the source's own bitmap
    Loaded loaded_[kMost];
    int count_ = 0;
};

}  // namespace kvui
