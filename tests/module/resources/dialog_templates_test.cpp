// Every dialog template of the module: the controls that code expects, and the layout a person
// sees.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <span>

#include "settings/item_catalogue.h"
#include "templates.h"

namespace {

using kvui::ControlItem;

struct Kind {
    const char* className;
    DWORD mask, style;
};
constexpr DWORD kButtonType = BS_TYPEMASK, kIconEntries = CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
constexpr Kind kCheck{"Button", kButtonType, BS_AUTOCHECKBOX},
    kRadio{"Button", kButtonType, BS_AUTORADIOBUTTON}, kGroup{"Button", kButtonType, BS_GROUPBOX},
    kPush{"Button", kButtonType & ~DWORD{BS_DEFPUSHBUTTON}, BS_PUSHBUTTON},
    kLink{"Button", kButtonType, BS_OWNERDRAW}, kEdit{"Edit", ES_PASSWORD, 0},
    kSecret{"Edit", ES_PASSWORD, ES_PASSWORD}, kCombo{"ComboBox", 3, CBS_DROPDOWNLIST},
    kIconCombo{"ComboBox", 3 | kIconEntries, CBS_DROPDOWNLIST | kIconEntries},
    kText{"Static", 0, 0}, kPicture{"Static", SS_TYPEMASK, SS_LEFT},
    kIcon{"Static", SS_TYPEMASK, SS_ICON}, kSpin{UPDOWN_CLASSA, UDS_AUTOBUDDY, UDS_AUTOBUDDY},
    kSlider{TRACKBAR_CLASSA, 0, 0}, kList{"ListBox", LBS_NOTIFY, LBS_NOTIFY},
    kTabbedList{"ListBox", LBS_NOTIFY | LBS_USETABSTOPS, LBS_NOTIFY | LBS_USETABSTOPS};

bool Is(const kv::DialogItem& control, const Kind& kind) {
    return HasClass(control, kind.className) && (control.style & kind.mask) == kind.style;
}

void ExpectKind(const Template& dialog, UINT id, const Kind& kind) {
    const kv::DialogItem* control = dialog.Control(id);
    ASSERT_NE(control, nullptr) << dialog.name << " " << id;
    EXPECT_TRUE(Is(*control, kind)) << dialog.name << " " << id;
}

// An item's own control, and those that its records name.
void ExpectItem(const Template& dialog, const ControlItem& item) {
    const std::set<UINT> iconCombos = {1405, 1410, 1418, 1419, 1421, 1422, 1510}, secrets = {5007};
    const auto expect = [&](UINT id, const Kind& kind) {
        if (id != 0) ExpectKind(dialog, id, kind);
    };
    const kv::DialogItem* control = dialog.Control(item.controlId);
    switch (item.type) {
        case kvui::kItemText:
            ASSERT_NE(control, nullptr) << item.controlId;
            EXPECT_TRUE(Is(*control, kGroup) || Is(*control, kText)) << item.controlId;
            break;
        case kvui::kItemCombo:
            expect(item.controlId, iconCombos.count(item.controlId) ? kIconCombo : kCombo);
            break;
        case kvui::kItemEdit:
            expect(item.controlId, secrets.count(item.controlId) ? kSecret : kEdit);
            expect(item.edit->spinId, kSpin);
            expect(item.edit->rangeTextId, kText);
            break;
        case kvui::kItemSlider:
            expect(item.controlId, kSlider);
            expect(item.slider->valueEditId, kEdit);
            expect(item.slider->spinId, kSpin);
            expect(item.slider->minimumTextId, kText);
            expect(item.slider->maximumTextId, kText);
            break;
        case kvui::kItemRadio:
            for (const auto& button : RadioButtons(item)) expect(button.buttonId, kRadio);
            break;
        default:
            expect(item.controlId, item.type == kvui::kItemCheck    ? kCheck
                                   : item.type == kvui::kItemButton ? kPush
                                                                    : kList);
    }
    const std::set<UINT> leftOut = {3014, 3027};
    if (leftOut.count(item.pictureId) == 0) expect(item.pictureId, kIcon);
}

TEST(DialogTemplates, HoldTheControlsOfTheirItems) {
    const std::map<std::string, const char*> templates = {
        {"DLGTAB0", "TAB0R"},         {"DLGTAB1", "TAB1R"},
        {"DLGTABOVER", "TABOVERLAY"}, {"DLGTABWM", "TABWM"},
        {"DLGTAB2", "TAB2R"},         {"DLGTAB3", "TAB3"},
        {"DLGTAB4", "TAB4"},          {"DLGTABVERSION", "TABVERSION"},
        {"DLGTAB00", "_DLGTAB00"},    {"DLGTAB01", "_DLGTAB01"},
        {"DLGTAB02", "_DLGTAB02"},    {"DLGCOMBINATION", "_DLGCOMBINATION"},
        {"MAILBOX", "_MAILBOXR"},     {"ABOUT", "_ABOUTKVI"}};
    // Items whose controls this driver does not show.
    const std::set<UINT> absent = {1172, 1200, 1210, 1220, 1240, 1890, 2021, 2022,
                                   2023, 2029, 3207, 3208, 3226, 3227, 3228, 3229};
    for (const ControlItem& item : kvui::kCatalogue) {
        const auto found = templates.find(item.dialogName);
        const Template dialog =
            LoadTemplate(found != templates.end() ? found->second : item.dialogName);
        if (absent.count(item.controlId) != 0) {
            EXPECT_EQ(dialog.Control(item.controlId), nullptr) << item.controlId;
        } else {
            ExpectItem(dialog, item);
        }
    }
}

TEST(DialogTemplates, HoldTheOtherControlsThatCodeExpects) {
    const struct {
        const char* dialog;
        Kind kind;
        std::vector<UINT> ids;
    } rows[] = {
        {"TAB0R", kRadio, {2019, 2020}},
        {"TAB0R", kPicture, {1492, 20001}},
        {"TAB1R", kCheck, {1521}},
        {"TAB1R", kPicture, {20001}},
        {"_DLGCOMBINATION", kPicture, {14002}},
        {"_DLGTAB02", kPicture, {1465, 1466, 1467, 1468}},
        {"_LBPIMAGESHIFT", kRadio, {9933, 9934}},
        {"TAB3", kTabbedList, {4015}},
        {"_MAILBOXR", kPicture, {4202}},
        {"_MAILBOXR", kEdit, {4204}},
        {"_MAILBOXR", kList, {4206}},
        {"TABVERSION", kLink, {20024, 20025, 20026, 20027, 20028, 20029}},
        {"TABVERSION", kPicture, {4106}},
        {"TABVERSION", kGroup, {20023}},
        {"_LBPQUARNWATERCOLOR", kSlider, {9780, 9781}},
        {"_LBPQUARNWATERCOLOR", kEdit, {9708, 9710, 9736, 9740, 9746, 9749}},
        {"_LBPQUARNWATERCOLOR", kSpin, {9737, 9741, 9747, 9750}},
        {"_LBPQUARNWATERCOLOR", kCombo, {9734, 9757, 9758}},
        {"_LBPQUARNWATERCOLOR", kRadio, {9761, 9762}},
        {"_LBPQUARNWATERCOLOR", kPush, {9759}},
        {"_LBPEDITPAPER", kEdit, {9612, 9614, 9617, 9625, 9627}},
        {"_LBPEDITPAPER", kSpin, {9615, 9618, 9626, 9628}},
        {"_LBPEDITPAPER", kRadio, {9619, 9620}},
        {"_LBPEDITPAPER", kText, {9621, 9624, 9629, 9630, 9631, 9632}},
        {"_LBPCUSTOMPAPERS", kTabbedList, {9603}},
        {"_LBPCUSTOMPAPERS", kPush, {9604, 9605, 9606}},
        {"DLGEDITEASYSET", kList, {15013}},
        {"DLGEDITEASYSET", kPush, {15024, 15025, 15026}},
        {"DLGEDITEASYSET", kIcon, {15014}},
        {"DLGEDITEASYSET", kEdit, {15011, 15012, 15015}},
        {"DLGEDITEASYSET", kCheck, {15028, 15029}},
        {"DLGEASYSET", kCombo, {9507}},
        {"DLGEASYSET", kPush, {15002, 15003}},
        {"DLGCOMMONVIEW", kPicture, {14001, 14002}},
        {"DLGCOMMONVIEW", kPush, {14003}},
    };
    for (const auto& row : rows) {
        for (const UINT id : row.ids) ExpectKind(LoadTemplate(row.dialog), id, row.kind);
    }
    for (const char* page : {"TAB0R", "TAB1R", "TABOVERLAY", "TABWM", "TAB2R", "TAB3"}) {
        ExpectKind(LoadTemplate(page), 12, kPush);
        ExpectKind(LoadTemplate(page), 1490, kEdit);
        ExpectKind(LoadTemplate(page), 1491, kIcon);
    }
    for (const char* name : {"_LBPFIRSTPAGE", "_DLGTAB00", "_DLGCOMBINATION", "_LBPIMAGESHIFT",
                             "_MAILBOXR", "_LBPQUARNWATERCOLOR", "_LBPCUSTOMPAPERS",
                             "DLGEDITEASYSET"}) {
        for (const UINT id : {IDOK, IDCANCEL, IDHELP}) ExpectKind(LoadTemplate(name), id, kPush);
    }
}

TEST(DialogTemplates, HideWhatCodeShowsAndWhatHasNoUse) {
    std::map<std::string, std::set<UINT>> hidden = {
        {"TAB0R", {1100, 2005, 2007, 2012, 2019, 2020, 2031}},
        {"TAB1R", {1404, 1405, 1520, 1521}},
        {"TABOVERLAY", {1880}},
        {"TABWM", {}},
        {"TAB2R", {}},
        {"TAB3", {4002, 4003, 4004, 4005, 4006, 4007, 4011}},
    };
    for (auto& [name, ids] : hidden) ids.insert({1490, 1491});
    hidden["TABVERSION"] = {4104, 20051};
    hidden["_LBPIMAGESHIFT"] = {1906, 1911};
    hidden["_HUECORRECTION"] = {712, 719};
    for (const char* name : kTemplates) {
        std::set<UINT> found;
        for (const kv::DialogItem& control : LoadTemplate(name).controls) {
            if (!IsVisible(control)) found.insert(control.id);
        }
        EXPECT_EQ(found, hidden[name]) << name;
    }
}

// The rectangle a person sees: a closed list is one line high, or holds a 32-pixel icon.
RECT SeenRect(const kv::DialogItem& control) {
    RECT rect = control.units;
    if (HasClass(control, "ComboBox")) {
        rect.bottom = rect.top + (control.style & CBS_OWNERDRAWFIXED ? 24 : 14);
    }
    return rect;
}

// Code shows one of these at a time, a picture lies in a frame, or a table's heading touches its
// frame.
bool ShareAPlaceByDesign(const Template& dialog, UINT first, UINT second) {
    static const std::map<std::string, std::vector<std::set<UINT>>> kShared = {
        {"_DLGCOMBINATION", {{1418, 1419, 1421, 1422}}},
        {"_LBPEDITPAPER", {{9624, 9631}, {9621, 9632}}},
        {"_LBPQUARNWATERCOLOR", {{9751, 9752}}},
        {"_CONFLICTS", {{9402, 9408}, {9403, 9408}}},
    };
    const auto found = kShared.find(dialog.name);
    if (found == kShared.end()) return false;
    for (const auto& ids : found->second) {
        if (ids.count(first) && ids.count(second)) return true;
    }
    return false;
}

bool Inside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

bool Overlap(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(DialogTemplates, VisibleControlsStayInsideAndDoNotOverlap) {
    for (const char* name : kTemplates) {
        const Template dialog = LoadTemplate(name);
        const RECT& extent = dialog.header.units;
        const RECT whole = {0, 0, extent.right - extent.left, extent.bottom - extent.top};
        for (const kv::DialogItem& one : dialog.controls) {
            const RECT place = SeenRect(one);
            EXPECT_TRUE(Inside(place, whole)) << dialog.name << " " << one.id;
            EXPECT_TRUE(place.right > place.left && place.bottom > place.top) << one.id;
            if (!IsVisible(one) || Is(one, kSpin)) continue;
            for (const kv::DialogItem& other : dialog.controls) {
                if (&other <= &one || !IsVisible(other) || Is(other, kSpin)) continue;
                const RECT place2 = SeenRect(other);
                if (!Overlap(place, place2)) continue;
                const bool contained = (Is(one, kGroup) && Inside(place2, place)) ||
                                       (Is(other, kGroup) && Inside(place, place2));
                EXPECT_TRUE(contained || ShareAPlaceByDesign(dialog, one.id, other.id))
                    << dialog.name << ": " << one.id << " and " << other.id;
            }
        }
    }
}

TEST(DialogTemplates, PagesKeepThePreviewAndSavedSettingsFree) {
    const Template panel = LoadTemplate("DLGCOMMONVIEW");
    const Template strip = LoadTemplate("DLGEASYSET");
    const Template first = LoadTemplate("TAB0R");
    for (const char* name : std::span(kTemplates).first(kPageTemplates)) {
        const Template page = LoadTemplate(name);
        EXPECT_EQ(page.header.units.right, first.header.units.right) << name;
        EXPECT_EQ(page.header.units.bottom, first.header.units.bottom) << name;
        for (const kv::DialogItem& control : page.controls) {
            EXPECT_GE(control.units.top, strip.header.units.bottom) << name << " " << control.id;
            if (std::string(name) == "TABVERSION") continue;  // shows no preview
            EXPECT_GE(control.units.left, panel.header.units.right) << name << " " << control.id;
        }
    }
    EXPECT_EQ(panel.header.units.right + strip.header.units.right, first.header.units.right);
    EXPECT_EQ(panel.header.units.bottom, first.header.units.bottom);
}

TEST(DialogTemplates, SpinsFollowTheirEdits) {
    for (const char* name : kTemplates) {
        const Template dialog = LoadTemplate(name);
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            if (!HasClass(dialog.controls[i], UPDOWN_CLASSA)) continue;
            ASSERT_GT(i, 0u);
            EXPECT_TRUE(HasClass(dialog.controls[i - 1], "Edit")) << name;
            EXPECT_TRUE(Is(dialog.controls[i], kSpin)) << dialog.controls[i].id;
        }
    }
}

// A text whose id is also the id of a field would be written over the field's content.
TEST(DialogTemplates, FieldsHaveNoCaption) {
    // A colour's field, whose dialog takes no captions; base names of naming dialogs.
    const std::set<UINT> wanted = {1775, 9202, 9302};
    for (const char* name : kTemplates) {
        for (const kv::DialogItem& control : LoadTemplate(name).controls) {
            if (HasClass(control, "Button") || HasClass(control, "Static")) continue;
            if (wanted.count(control.id) != 0) continue;
            EXPECT_EQ(StringOf(control.id), "") << name << " " << control.id;
        }
    }
}

}  // namespace
