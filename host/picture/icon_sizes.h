// Icons for larger scales: modules carry their icons in several sizes.
#pragma once

#include <windows.h>

namespace kvhost {

// The picture of an icon that fits a scale best; it lives as long as this object.
class SizedIcon {
   public:
    SizedIcon(HICON icon, double scale);
    ~SizedIcon();
    SizedIcon(const SizedIcon&) = delete;
    SizedIcon& operator=(const SizedIcon&) = delete;

    HICON icon() const { return sized_ != nullptr ? sized_ : icon_; }

   private:
    HICON icon_{};
    HICON sized_{};
};

}  // namespace kvhost
