// Making settings of the controls that share a field, and finding the words for them.
#include <host/index/setting_names.h>
#include <host/index/sheet_pages.h>

#include <kvlist.h>
#include <module/resources/resource.h>
#include <module/resources/string_ids.h>
#include <windows.h>

#include <algorithm>
#include <cstring>

namespace kvhost {
namespace {

// Captions that do not tell by themselves what they name: control, its string, the topic before it.
struct CaptionRow {
    const char* control;
    DWORD caption;
    DWORD topic;
};
constexpr CaptionRow kCaptions[] = {
    {"Combo1stPageSource", IDC_ST_FIRST_PAGE_SOURCE, IDC_CHK_FIRST_PAGE_SOURCE},
    {"Combo1stPageMedia", IDC_ST_FIRST_PAGE_MEDIA, IDC_CHK_FIRST_PAGE_SOURCE},
    {"EditOffsetX", IDC_ST_OFFSET_X, IDC_GRP_IMAGE_SHIFT},
    {"EditOffsetY", IDC_ST_OFFSET_Y, IDC_GRP_IMAGE_SHIFT},
    {"ChkWatermark1stPage", IDS_FIRST_PAGE_ONLY, IDS_WATERMARK},
    {"ChkWatermarkInBackground", IDS_BACKGROUND, IDS_WATERMARK},
    {"ChkWatermarkRepeat", IDC_CHK_WATERMARK_REPEAT, IDS_WATERMARK},
    {"ComboOverlay1st", IDC_ST_OVERLAY_PAGES, IDC_ST_OVERLAY},
    {"ComboColorMatchPhoto", IDC_ST_MATCH_PHOTO, IDC_GRP_COLOR_MATCHING},
    {"ComboColorMatchGraphics", IDC_ST_MATCH_GRAPHICS, IDC_GRP_COLOR_MATCHING},
    {"ComboColorMatchText", IDC_ST_MATCH_TEXT, IDC_GRP_COLOR_MATCHING},
    {"ChkGlossyBlackText", IDC_CHK_GLOSSY_TEXT, IDC_GRP_GLOSSY_BLACK},
    {"ChkGlossyBlackGraphics", IDC_CHK_GLOSSY_GRAPHICS, IDC_GRP_GLOSSY_BLACK},
    {"ChkGlossyBlackBitmap", IDC_CHK_GLOSSY_PHOTO, IDC_GRP_GLOSSY_BLACK},
    {"ComboPunchNum", IDC_ST_PUNCH_NUM, IDC_GRP_PUNCH},
    {"InstallableOption", IDC_ST_INSTALLED, 0},
    {"Password", IDC_ST_PASSWORD, 0},
};

bool IsNamed(const char* name, const char* other) { return std::strcmp(name, other) == 0; }

bool ChangesSetting(const Control& control) {
    return control.setting[0] != '\0' && !IsNamed(control.kind, "text") &&
           !IsNamed(control.kind, "button");
}

bool IsMasked(const Control& control) { return control.maskMode != 0 && control.mask != 0; }

bool IsOnPage(const Control& control) { return PageIndexOfDialog(control.dialog) >= 0; }

// A list that offers nothing but values of these bits stands for them.
bool Covers(const Control& list, DWORD mask) {
    const auto isInside = [mask](const Choice& choice) { return (choice.value & ~mask) == 0; };
    return !IsMasked(list) && list.choiceCount > 0 &&
           std::all_of(list.choices, list.choices + list.choiceCount, isInside);
}

template <size_t size>
std::string Bounded(const CHAR (&text)[size]) {
    return std::string(text, strnlen(text, size));
}

std::string PaperName(PrinterBlock& printer, DWORD id) {
    CustomPaperRecord paper{};
    const ListHandle list = QDMMLTReadPaper(&printer);
    const bool found = list != nullptr && QDMMLTGetPaperWithID(list, &printer, &paper, id) != 0;
    if (list != nullptr) QDMMLTCancelPaper(list, &printer);
    return found ? Bounded(paper.displayName) : std::string();
}

std::string WatermarkName(PrinterBlock& printer, DWORD id) {
    WatermarkRecord mark{};
    const ListHandle list = QDMMLTReadWatermark(&printer);
    const bool found = list != nullptr && QDMMLTGetWatermarkWithID(list, &printer, &mark, id) != 0;
    if (list != nullptr) QDMMLTCancelWatermark(list, &printer);
    return found ? Bounded(mark.name) : std::string();
}

std::string BinName(PrinterBlock& printer, DWORD identifier) {
    std::string name;
    for (DWORD which = 0; which < 2 && name.empty(); ++which) {
        const ListHandle list = QDMMLTReadBin(&printer, which);
        if (list == nullptr) continue;
        std::vector<BinRecord> bins(std::max(0, QDMMLTGetBinNum(list, &printer)), BinRecord{});
        if (!bins.empty() && QDMMLTGetBinArray(list, &printer, bins.data()) != 0) {
            for (const BinRecord& bin : bins) {
                if (bin.identifier == identifier) name = Bounded(bin.displayName);
            }
        }
        QDMMLTCancelBin(list, &printer);
    }
    return name;
}

std::string NameInList(PrinterBlock& printer, RunTimeList list, DWORD value) {
    switch (list) {
        case RunTimeList::kPapers:
        case RunTimeList::kOutputPapers:
            return PaperName(printer, value);
        case RunTimeList::kSources:
        case RunTimeList::kOtherSources:
            return BinName(printer, value);
        case RunTimeList::kWatermarks:
            return WatermarkName(printer, value);
        default:
            return {};
    }
}

}  // namespace

std::string PlainCaption(std::string caption) {
    caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
    const size_t end = caption.find_last_not_of(".: ");
    caption.resize(end == std::string::npos ? 0 : end + 1);
    return caption;
}

SettingNames::SettingNames(HMODULE strings, PrinterBlock& printer)
    : strings_(strings), printer_(printer) {
    const auto* end = kControls + kControlCount;
    for (const Control* control = kControls; control != end; ++control) {
        if (!ChangesSetting(*control)) continue;
        const Field* field = FindField(control->setting);
        if (field == nullptr || !field->byName) continue;
        DWORD mask = IsMasked(*control) ? control->mask : 0xFFFFFFFF;
        const auto coversThis = [&](const Control& other) {
            return IsNamed(other.setting, control->setting) && Covers(other, mask);
        };
        if (IsMasked(*control) && std::any_of(kControls, end, coversThis)) continue;
        for (const Control* other = kControls; other != end && !IsMasked(*control); ++other) {
            const bool apart = IsNamed(other->setting, control->setting) && IsMasked(*other) &&
                               !Covers(*control, other->mask);
            if (apart) mask &= ~other->mask;
        }
        const auto same = std::find_if(settings_.begin(), settings_.end(), [&](const auto& known) {
            return known.field == field && known.mask == mask;
        });
        if (same == settings_.end()) {
            settings_.push_back({field, mask, {control}, {}});
        } else {
            same->controls.push_back(control);
        }
    }
    for (NamedSetting& setting : settings_) {
        // Those with a caption of their own, and of these the one on a page.
        std::stable_sort(setting.controls.begin(), setting.controls.end(),
                         [](const Control* left, const Control* right) {
                             const auto rank = [](const Control& control) {
                                 return (control.captionId != 0 ? 0 : 2) + (IsOnPage(control) ? 0 : 1);
                             };
                             return rank(*left) < rank(*right);
                         });
        setting.caption = Caption(*setting.controls.front());
    }
}

std::string SettingNames::ModuleString(DWORD id) const {
    char text[256] = "";
    if (id != 0) LoadStringA(strings_, id, text, sizeof text);
    return PlainCaption(text);
}

std::string SettingNames::Caption(const Control& control) const {
    for (const CaptionRow& row : kCaptions) {
        if (!IsNamed(row.control, control.name)) continue;
        const std::string topic = row.topic != 0 ? ModuleString(row.topic) + ": " : std::string();
        return topic + ModuleString(row.caption);
    }
    DWORD id = control.captionId;
    // A control without a caption follows its label.
    for (const Control* before = &control; id == 0 && before-- != kControls;) {
        if (!IsNamed(before->dialog, control.dialog)) break;
        if (IsNamed(before->kind, "text")) id = before->captionId;
    }
    const std::string caption = ModuleString(id);
    return caption.empty() ? control.setting : caption;
}

std::vector<const NamedSetting*> SettingNames::Changed(const BYTE* before,
                                                       const BYTE* after) const {
    std::vector<const NamedSetting*> changed;
    for (const NamedSetting& setting : settings_) {
        if (setting.ValueIn(before) != setting.ValueIn(after)) changed.push_back(&setting);
    }
    return changed;
}

const NamedSetting* SettingNames::SettingOfControl(DWORD controlId) const {
    if (controlId == 0) return nullptr;
    for (const NamedSetting& setting : settings_) {
        for (const Control* control : setting.controls) {
            const auto isButton = [&](const Choice& choice) {
                return choice.buttonId != 0 && choice.buttonId == controlId;
            };
            if (control->id == controlId || control->parts[0] == controlId ||
                control->parts[1] == controlId ||
                std::any_of(control->choices, control->choices + control->choiceCount, isButton)) {
                return &setting;
            }
        }
    }
    return nullptr;
}

std::string SettingNames::ValueText(const NamedSetting& setting, DWORD value) const {
    if (const auto& empty = setting.controls.front()->empty) {
        return value != 0 && value != *empty ? "set" : "not set";
    }
    std::string bits;
    for (const Control* control : setting.controls) {
        const bool isSet = IsNamed(control->kind, "list");
        for (unsigned i = 0; i < control->choiceCount; ++i) {
            const Choice& choice = control->choices[i];
            // A box that has not the value of a checked one is not checked.
            const bool isOff = IsNamed(control->kind, "check") && IsNamed(choice.name, "off") &&
                               value != control->choices[i + 1].value;
            if (!isSet && (choice.value == value || isOff)) return ModuleString(choice.captionId);
            if (isSet && (choice.value & value) != 0 && control == setting.controls.front()) {
                bits += (bits.empty() ? "" : ", ") + ModuleString(choice.captionId);
            }
        }
        const bool asLaidOut = value == 0 && control->list == RunTimeList::kOutputPapers;
        const std::string name = asLaidOut ? ModuleString(IDS_SAME_AS_ORIGINAL)
                                           : NameInList(printer_, control->list, value);
        if (!name.empty()) return name;
    }
    if (!bits.empty()) return bits;
    return std::to_string(static_cast<LONG>(value) - setting.controls.front()->sliderBase);
}

}  // namespace kvhost
