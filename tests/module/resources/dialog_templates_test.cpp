// Every dialog template of the module: the controls that code expects, and the layout a person
// sees.
#include <commctrl.h>
#include <gtest/gtest.h>
#include <strings.h>

#include <map>
#include <set>

#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "templates.h"

namespace {

const char* const kPages[] = {"TAB0R", "TAB1R", "TABOVERLAY", "TABWM",   "TAB2R",
                              "TAB3",  "TAB4",  "TABVERSION", "DLGTAB5", "DLGTAB6"};
const char* const kSubDialogs[] = {
    "_LBPFIRSTPAGE",       "_DLGTAB00",         "_DLGTAB01",      "_DLGTAB02",
    "_DLGTAB20",           "_DLGCOMBINATION",   "_LBPIMAGESHIFT", "_LBPEDITOVERLAY",
    "_LBPQUARNWATERCOLOR", "_MAILBOXR",         "_ABOUTKVI",      "_CONFLICTS",
    "_OPTIONCONFLICT",     "_LBPCUSTOMPAPERS",  "_LBPEDITPAPER",  "DLGEASYSET",
    "DLGSAVEEASYSET",      "DLGEDITEASYSET",    "DLGCOMMONVIEW",  "_DLGKEEPSETTINGADD",
    "_DLGSAVEDATA",        "_ADVANCEDSETTINGS", "_HUECORRECTION", "_DLGEDIT0",
};

std::vector<Template> AllTemplates() {
    std::vector<Template> all;
    for (const char* name : kPages) all.push_back(LoadTemplate(name));
    for (const char* name : kSubDialogs) all.push_back(LoadTemplate(name));
    return all;
}

bool Is(const kv::DialogItem& control, const char* className) {
    return strcasecmp(control.className.c_str(), className) == 0;
}

bool IsGroupBox(const kv::DialogItem& control) {
    return Is(control, "Button") && (control.style & BS_TYPEMASK) == BS_GROUPBOX;
}

// The rectangle a person sees: a closed list is one line high, or holds a 32-pixel icon.
RECT SeenRect(const kv::DialogItem& control) {
    RECT rect = control.units;
    if (Is(control, "ComboBox")) {
        rect.bottom = rect.top + (control.style & CBS_OWNERDRAWFIXED ? 24 : 14);
    }
    return rect;
}

enum Kind {
    kCheck,
    kRadio,
    kGroup,
    kPush,
    kEdit,
    kCombo,
    kIconCombo,
    kText,
    kPicture,
    kIcon,
    kSpin,
    kSlider,
    kList,
    kTabbedList,
    kSecret,
    kLink
};

bool HasKind(const kv::DialogItem& control, Kind kind) {
    const auto button = [&](DWORD type) {
        return Is(control, "Button") && (control.style & BS_TYPEMASK) == type;
    };
    const auto fixed = [&](DWORD type) {
        return Is(control, "Static") && (control.style & SS_TYPEMASK) == type;
    };
    const DWORD icons = CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
    switch (kind) {
        case kCheck:
            return button(BS_AUTOCHECKBOX);
        case kRadio:
            return button(BS_AUTORADIOBUTTON);
        case kGroup:
            return button(BS_GROUPBOX);
        case kPush:
            return button(BS_PUSHBUTTON) || button(BS_DEFPUSHBUTTON);
        case kEdit:
            return Is(control, "Edit") && !(control.style & ES_PASSWORD);
        case kSecret:
            return Is(control, "Edit") && (control.style & ES_PASSWORD) != 0;
        case kCombo:
            return Is(control, "ComboBox") && (control.style & 3) == CBS_DROPDOWNLIST;
        case kIconCombo:
            return HasKind(control, kCombo) && (control.style & icons) == icons;
        case kText:
            return fixed(SS_LEFT) || fixed(SS_RIGHT) || fixed(SS_CENTER);
        case kPicture:
            return fixed(SS_LEFT) && control.title.empty();
        case kIcon:
            return fixed(SS_ICON);
        case kSpin:
            return Is(control, UPDOWN_CLASSA);
        case kSlider:
            return Is(control, TRACKBAR_CLASSA);
        case kList:
            return Is(control, "ListBox") && (control.style & LBS_NOTIFY) != 0;
        case kTabbedList:
            return HasKind(control, kList) && (control.style & LBS_USETABSTOPS) != 0;
        case kLink:
            return button(BS_OWNERDRAW);
    }
    return false;
}

struct Expected {
    Kind kind;
    std::vector<UINT> shown;
    std::vector<UINT> hidden;
};

const std::map<std::string, std::vector<Expected>> kExpected = {
    {"TAB0R",
     {{kCombo, {2002, 2006, 1111, 1141}, {}},
      {kRadio, {2026, 2027, 1787, 1788}, {2019, 2020}},
      {kGroup, {2024, 2008, 2013}, {}},
      {kEdit, {2009, 2014}, {1490}},
      {kSpin, {2010, 2015}, {}},
      {kText, {2001, 2004, 2011, 2016, 2028, 1110, 1140}, {2012, 1100}},
      {kCheck, {2034, 2030, 1170}, {2005, 2007, 2031}},
      {kPicture, {1492, 20001}, {}},
      {kIcon, {2025, 2018}, {1491}},
      {kPush, {2003, 12}, {}}}},
    {"_LBPFIRSTPAGE",
     {{kCombo, {1173, 1176}, {}}, {kText, {1171, 1175}, {}}, {kPush, {1, 2, 9}, {}}}},
    {"_DLGTAB00",
     {{kCheck, {1182, 1183, 1184, 1185, 1189, 1190}, {}},
      {kCombo, {1187, 1192}, {}},
      {kGroup, {1181, 1188}, {}},
      {kText, {1186, 1191}, {}},
      {kPush, {1, 2, 9}, {}}}},
    {"TAB1R",
     {{kIconCombo, {1410, 1510}, {1405}},
      {kPush, {1430, 1912, 12}, {}},
      {kCheck, {2032, 1901}, {1521}},
      {kText, {1400, 1500}, {1404}},
      {kIcon, {}, {1520, 1491}},
      {kEdit, {}, {1490}},
      {kPicture, {20001}, {}}}},
    {"_DLGCOMBINATION",
     {{kIconCombo, {1410, 1418, 1419, 1421, 1422}, {}},
      {kCheck, {1420}, {}},
      {kPicture, {14002}, {}},
      {kPush, {1, 2, 9, 12}, {}}}},
    {"_DLGTAB02",
     {{kRadio, {1461, 1462, 1463, 1464}, {}}, {kPicture, {1465, 1466, 1467, 1468}, {}}}},
    {"_DLGTAB01", {{kCombo, {1303, 1306, 1308, 1312}, {}}, {kIcon, {1302, 1305, 1311}, {}}}},
    {"_LBPIMAGESHIFT",
     {{kEdit, {1902, 1907}, {}},
      {kSpin, {1903, 1908}, {}},
      {kText, {1905, 1910}, {}},
      {kRadio, {9933, 9934}, {}},
      {kPush, {1, 2, 9, 12}, {}}}},
    {"TABOVERLAY",
     {{kList, {1891}, {}},
      {kCombo, {1881}, {}},
      {kPush, {1892, 1893, 1894, 12}, {}},
      {kCheck, {}, {1880}},
      {kText, {1850, 1851}, {}},
      {kIcon, {}, {1491}},
      {kEdit, {}, {1490}}}},
    {"TABWM",
     {{kList, {8002}, {}},
      {kCheck, {8003, 8004, 20062}, {}},
      {kPush, {8005, 8006, 8007, 12}, {}},
      {kText, {8001}, {}},
      {kIcon, {}, {1491}},
      {kEdit, {}, {1490}}}},
    {"TAB2R",
     {{kRadio, {3202, 3203, 3205, 3206}, {}},
      {kCombo, {3003, 3246, 3247, 3248}, {}},
      {kSlider, {3008, 3011, 3210, 3215}, {}},
      {kEdit, {3009, 3012, 3211, 3216}, {1490}},
      {kSpin, {1068, 1069, 1070, 1071}, {}},
      {kCheck, {3235}, {}},
      {kIcon, {3002}, {1491}},
      {kText, {3020, 3021, 3022, 3023, 3212, 3213, 3217, 3218}, {}},
      {kPush, {12}, {}}}},
    {"TAB3",
     {{kTabbedList, {4015}, {}},
      {kList, {}, {4003, 4007}},
      {kCombo, {4014}, {}},
      {kCheck, {4012}, {}},
      {kPush, {4008, 12}, {4004, 4005, 4011}},
      {kEdit, {4010}, {1490}},
      {kText, {4013}, {4002, 4006}},
      {kGroup, {4001, 4009}, {}},
      {kIcon, {}, {1491}}}},
    {"_MAILBOXR",
     {{kPicture, {4202}, {}},
      {kEdit, {4204}, {}},
      {kList, {4206}, {}},
      {kCombo, {4208}, {}},
      {kPush, {1, 2, 9, 4205}, {}},
      {kText, {4201, 4203, 4207}, {}}}},
    {"TABVERSION",
     {{kLink, {20024, 20025, 20026, 20027, 20028, 20029}, {}},
      {kPicture, {4106}, {}},
      {kText, {4101, 4102, 4103}, {4104, 20051}},
      {kGroup, {20023}, {}}}},
    {"TAB4",
     {{kCheck, {5002, 5005, 5009, 5010}, {}},
      {kEdit, {5004, 5014}, {}},
      {kSecret, {5007}, {}},
      {kSpin, {5015}, {}},
      {kCombo, {5012}, {}},
      {kText, {5003, 5006, 5011, 5013}, {}},
      {kGroup, {5001, 5008}, {}}}},
    {"_LBPQUARNWATERCOLOR",
     {{kSlider, {9780, 9781}, {}},
      {kEdit, {9708, 9710, 9736, 9740, 9746, 9749}, {}},
      {kSpin, {9737, 9741, 9747, 9750}, {}},
      {kCombo, {9734, 9757, 9758}, {}},
      {kRadio, {9761, 9762}, {}},
      {kPush, {1, 2, 9, 9759}, {}},
      {kGroup, {9760}, {}}}},
    {"_LBPEDITPAPER",
     {{kEdit, {9612, 9614, 9617, 9625, 9627}, {}},
      {kSpin, {9615, 9618, 9626, 9628}, {}},
      {kRadio, {9619, 9620}, {}},
      {kText, {9621, 9624, 9629, 9630, 9631, 9632}, {}}}},
    {"_LBPCUSTOMPAPERS", {{kTabbedList, {9603}, {}}, {kPush, {1, 2, 9, 9604, 9605, 9606}, {}}}},
    {"DLGEDITEASYSET",
     {{kList, {15013}, {}},
      {kPush, {1, 2, 9, 15024, 15025, 15026}, {}},
      {kIcon, {15014}, {}},
      {kEdit, {15011, 15012, 15015}, {}},
      {kCheck, {15028, 15029}, {}},
      {kGroup, {15027}, {}}}},
    {"DLGEASYSET", {{kCombo, {9507}, {}}, {kPush, {15002, 15003}, {}}, {kText, {15001}, {}}}},
    {"DLGCOMMONVIEW", {{kPicture, {14001, 14002}, {}}, {kPush, {14003}, {}}}},
};

TEST(DialogTemplates, HoldTheControlsThatCodeExpects) {
    for (const auto& [name, rows] : kExpected) {
        const Template dialog = LoadTemplate(name.c_str());
        const auto check = [&](const Expected& row, UINT id, bool visible) {
            const kv::DialogItem* control = dialog.Control(id);
            ASSERT_NE(control, nullptr) << name << " " << id;
            EXPECT_TRUE(HasKind(*control, row.kind)) << name << " " << id;
            EXPECT_EQ(IsVisible(*control), visible) << name << " " << id;
        };
        for (const Expected& row : rows) {
            for (const UINT id : row.shown) check(row, id, true);
            for (const UINT id : row.hidden) check(row, id, false);
        }
    }
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
    for (const Template& dialog : AllTemplates()) {
        const RECT& extent = dialog.header.units;
        const RECT whole = {0, 0, extent.right - extent.left, extent.bottom - extent.top};
        for (const kv::DialogItem& one : dialog.controls) {
            const RECT place = SeenRect(one);
            EXPECT_TRUE(Inside(place, whole)) << dialog.name << " " << one.id;
            EXPECT_TRUE(place.right > place.left && place.bottom > place.top) << one.id;
            if (!IsVisible(one) || HasKind(one, kSpin)) continue;
            for (const kv::DialogItem& other : dialog.controls) {
                if (&other <= &one || !IsVisible(other) || HasKind(other, kSpin)) continue;
                const RECT place2 = SeenRect(other);
                if (!Overlap(place, place2)) continue;
                const bool contained = (IsGroupBox(one) && Inside(place2, place)) ||
                                       (IsGroupBox(other) && Inside(place, place2));
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
    for (const char* name : kPages) {
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
    for (const Template& dialog : AllTemplates()) {
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            if (!HasKind(dialog.controls[i], kSpin)) continue;
            ASSERT_GT(i, 0u);
            EXPECT_TRUE(Is(dialog.controls[i - 1], "Edit")) << dialog.name;
            EXPECT_TRUE(dialog.controls[i].style & UDS_AUTOBUDDY) << dialog.controls[i].id;
        }
    }
}

}  // namespace
