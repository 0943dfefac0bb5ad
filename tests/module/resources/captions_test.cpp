// The string table against the dialogs: captions fit their controls, none lands in a field that is
// filled from a setting, mnemonics are unique; and the pictures that the ids promise exist.
#include <commctrl.h>
#include <gtest/gtest.h>
#include <strings.h>

#include <map>
#include <set>

#include "resources/picture_ids.h"
#include "resources/string_ids.h"
#include "fixed_captions.h"
#include "templates.h"

namespace {

const char* const kDialogs[] = {
    "TAB0R",
    "TAB1R",
    "TABOVERLAY",
    "TABWM",
    "TAB2R",
    "TAB3",
    "TAB4",
    "TABVERSION",
    "_LBPFIRSTPAGE",
    "_DLGTAB00",
    "_DLGTAB01",
    "_DLGTAB02",
    "_DLGCOMBINATION",
    "_LBPIMAGESHIFT",
    "_LBPEDITOVERLAY",
    "_LBPQUARNWATERCOLOR",
    "_MAILBOXR",
    "_CONFLICTS",
    "_OPTIONCONFLICT",
    "_LBPCUSTOMPAPERS",
    "_LBPEDITPAPER",
    "DLGEASYSET",
    "DLGSAVEEASYSET",
    "DLGEDITEASYSET",
};

// Captions that the catalogue gives controls whose own id is no string's.
const std::map<UINT, UINT> kCatalogueCaptions = {
    {2034, IDS_COLLATE},    {3235, IDS_LINE_ART},
    {8001, IDS_WATERMARK},  {8003, IDS_FIRST_PAGE_ONLY},
    {8004, IDS_BACKGROUND}, {8005, IDS_EDIT},
    {8006, IDS_ADD},        {8007, IDS_DELETE},
};

bool Is(const kv::DialogItem& control, const char* className) {
    return strcasecmp(control.className.c_str(), className) == 0;
}

std::string CaptionOf(const kv::DialogItem& control) {
    const auto found = kCatalogueCaptions.find(control.id);
    return StringOf(found != kCatalogueCaptions.end() ? found->second : control.id);
}

// Width in pixels at the dialogs' font, estimated at six per character; mnemonic marks are not
// shown.
int TextWidth(const std::string& text) {
    int width = 0;
    for (const char letter : text) width += letter == '&' ? 0 : 6;
    return width;
}

// Pixels that the control keeps for other things than its text.
int Furniture(const kv::DialogItem& control) {
    if (!Is(control, "Button")) return 0;
    switch (control.style & BS_TYPEMASK) {
        case BS_AUTOCHECKBOX:
        case BS_AUTORADIOBUTTON:
            return 16;
        case BS_GROUPBOX:
            return 18;
        case BS_OWNERDRAW:
            return 4;
        default:
            return 8;
    }
}

TEST(Captions, FitTheirControls) {
    for (const char* name : kDialogs) {
        for (const kv::DialogItem& control : LoadTemplate(name).controls) {
            const std::string caption = CaptionOf(control);
            if (caption.empty() || Is(control, "Edit")) continue;
            const RECT& place = control.units;
            const int room = (place.right - place.left) * 6 / 4 - Furniture(control);
            const int lines = Is(control, "Static") ? (place.bottom - place.top) / 8 : 1;
            EXPECT_LE(TextWidth(caption), room * lines)
                << name << " " << control.id << " \"" << caption << "\"";
        }
    }
}

// A text whose id is also the id of a field would be written over the field's content.
TEST(Captions, LeaveFieldsAlone) {
    const std::set<UINT> wanted = {9202, 9302};  // base names of naming dialogs
    for (const char* name : kDialogs) {
        for (const kv::DialogItem& control : LoadTemplate(name).controls) {
            if (Is(control, "Button") || Is(control, "Static") || wanted.count(control.id))
                continue;
            EXPECT_EQ(StringOf(control.id), "") << name << " " << control.id;
        }
    }
}

TEST(Captions, EveryVisibleButtonAndGroupHasOne) {
    const std::set<UINT> none = {9408, 9409};  // the frames of the conflict tables
    for (const char* name : kDialogs) {
        for (const kv::DialogItem& control : LoadTemplate(name).controls) {
            if (!Is(control, "Button") || !IsVisible(control) || none.count(control.id)) continue;
            EXPECT_NE(CaptionOf(control), "") << name << " " << control.id;
        }
    }
}

// Lower case; 0 when a caption has none.
int MnemonicOf(const std::string& caption) {
    const std::size_t mark = caption.find('&');
    return mark == std::string::npos ? 0 : std::tolower(static_cast<BYTE>(caption.at(mark + 1)));
}

TEST(Captions, MnemonicsAreUniqueInEachDialog) {
    for (const char* name : kDialogs) {
        const Template dialog = LoadTemplate(name);
        std::map<int, std::string> used;
        const auto add = [&](const std::string& caption) {
            if (const int letter = MnemonicOf(caption)) {
                const auto [first, isNew] = used.emplace(letter, caption);
                EXPECT_TRUE(isNew) << name << ": " << first->second << " and " << caption;
            }
        };
        for (const kv::DialogItem& control : dialog.controls) add(CaptionOf(control));
        if ((dialog.header.style & WS_CHILD) == 0) continue;
        // Around a page are the saved settings, the preview's button and the sheet's buttons.
        if (dialog.name != "DLGEASYSET") {
            for (const kv::DialogItem& control : LoadTemplate("DLGEASYSET").controls) {
                add(CaptionOf(control));
            }
        }
        add(StringOf(IDS_VIEW_PRINTER));
        add("&Apply");
    }
}

// What a person can change, as against texts and lists to read.
bool IsField(const kv::DialogItem& control) {
    if (Is(control, "Edit")) return (control.style & ES_READONLY) == 0;
    if (Is(control, "ListBox")) return (control.style & LBS_NOSEL) == 0;
    return Is(control, "ComboBox") || Is(control, TRACKBAR_CLASSA);
}

TEST(Captions, EveryOtherLabelledControlHasAMnemonic) {
    // Enter, Escape and F1 press these.
    const std::set<UINT> buttons = {IDOK, IDCANCEL, IDHELP};
    for (const char* name : kDialogs) {
        const std::vector<kv::DialogItem> controls = LoadTemplate(name).controls;
        for (std::size_t i = 0; i < controls.size(); ++i) {
            const kv::DialogItem& control = controls[i];
            const DWORD type = control.style & BS_TYPEMASK;
            const bool button = Is(control, "Button") && type != BS_GROUPBOX &&
                                type != BS_OWNERDRAW && type != BS_DEFPUSHBUTTON &&
                                buttons.count(control.id) == 0;
            const bool label = Is(control, "Static") && i + 1 < controls.size() &&
                               IsField(controls[i + 1]);
            const std::string caption = CaptionOf(control);
            if ((!button && !label) || !IsVisible(control) || caption.empty()) continue;
            if (FixedCaptions().count(caption) != 0) continue;
            EXPECT_NE(MnemonicOf(caption), 0) << name << " " << control.id << " " << caption;
        }
    }
}

TEST(Strings, SpecialCharactersSurviveTheCompiler) {
    const struct {
        UINT id;
        const char* text;
    } cases[] = {
        {IDS_NAME_REGISTERED, "\"%s\" is already registered.  Do you want to overwrite it?"},
        {IDS_SET_DEFAULTS_FIXED,
         "Unable to Edit or Delete the [Saved Settings] \"Defaults\" setting."},
        {IDS_KEEP_OVERWRITE, "This name already exists.\rDo you want to overwrite your setting?"},
        {IDS_SET_CHANGE_SETTING,
         "Do you want to change your setting \naccording to registered value ?"},
        {IDS_TIP_ORDER, "Open Order Supplies Page\r\n"},
        {IDS_OVERLAY_NONE, "<NONE>"},
    };
    for (const auto& test : cases) EXPECT_EQ(StringOf(test.id), test.text);
}

TEST(Pictures, IconsHaveAnImageForEachScale) {
    for (const int id : {IDI_NOTICE, IDI_PORTRAIT, IDI_COLLATE_ON, IDI_NUP_BOOKLET,
                         IDI_DUPLEX_SHORT_EDGE, IDI_RESOLUTION_2400, IDI_PUNCH_RIGHT_4,
                         IDI_FOLD_CREASE, IDI_STAPLE_CORNER, IDI_ORDER_DOWN_RIGHT}) {
        for (const int size : {32, 64}) {
            const HANDLE icon = LoadImageA(nullptr, MAKEINTRESOURCEA(static_cast<unsigned>(id)),
                                           IMAGE_ICON, size, size, LR_DEFAULTCOLOR);
            EXPECT_NE(icon, nullptr) << id << " at " << size;
            DestroyIcon(static_cast<HICON>(icon));
        }
    }
}

}  // namespace
