// The table of names, see notification_names.h.
#include "tests/support/notification_names.h"

#include <platform/window/window.h>

#include <commctrl.h>

namespace kv::test {
namespace {

struct CodeName {
    const char* kind;
    UINT code;
    const char* name;
};

// Kind of control, notification or scroll code, its name in the lists.
constexpr CodeName kCodeNames[] = {
    {"button", BN_CLICKED, "BN_CLICKED"},
    {"button", BN_DOUBLECLICKED, "BN_DOUBLECLICKED"},
    {"static", STN_CLICKED, "STN_CLICKED"},
    {"edit", EN_SETFOCUS, "EN_SETFOCUS"},
    {"edit", EN_KILLFOCUS, "EN_KILLFOCUS"},
    {"edit", EN_CHANGE, "EN_CHANGE"},
    {"edit", EN_UPDATE, "EN_UPDATE"},
    {"edit", EN_MAXTEXT, "EN_MAXTEXT"},
    {"combo", CBN_SELCHANGE, "CBN_SELCHANGE"},
    {"combo", CBN_SETFOCUS, "CBN_SETFOCUS"},
    {"combo", CBN_KILLFOCUS, "CBN_KILLFOCUS"},
    {"combo", CBN_EDITCHANGE, "CBN_EDITCHANGE"},
    {"combo", CBN_EDITUPDATE, "CBN_EDITUPDATE"},
    {"combo", CBN_DROPDOWN, "CBN_DROPDOWN"},
    {"combo", CBN_CLOSEUP, "CBN_CLOSEUP"},
    {"combo", CBN_SELENDOK, "CBN_SELENDOK"},
    {"combo", CBN_SELENDCANCEL, "CBN_SELENDCANCEL"},
    {"list", LBN_SELCHANGE, "LBN_SELCHANGE"},
    {"list", LBN_DBLCLK, "LBN_DBLCLK"},
    {"list", LBN_SETFOCUS, "LBN_SETFOCUS"},
    {"list", LBN_KILLFOCUS, "LBN_KILLFOCUS"},
    {"trackbar", TB_LINEUP, "TB_LINEUP"},
    {"trackbar", TB_LINEDOWN, "TB_LINEDOWN"},
    {"trackbar", TB_PAGEUP, "TB_PAGEUP"},
    {"trackbar", TB_PAGEDOWN, "TB_PAGEDOWN"},
    {"trackbar", TB_THUMBPOSITION, "TB_THUMBPOSITION"},
    {"trackbar", TB_THUMBTRACK, "TB_THUMBTRACK"},
    {"trackbar", TB_TOP, "TB_TOP"},
    {"trackbar", TB_BOTTOM, "TB_BOTTOM"},
    {"trackbar", TB_ENDTRACK, "TB_ENDTRACK"},
    {"updown", SB_THUMBPOSITION, "SB_THUMBPOSITION"},
    {"updown", SB_ENDSCROLL, "SB_ENDSCROLL"},
    {"updown", UDN_DELTAPOS, "UDN_DELTAPOS"},
    {"tab", TCN_SELCHANGE, "TCN_SELCHANGE"},
    {"tab", TCN_SELCHANGING, "TCN_SELCHANGING"},
};

}  // namespace

const char* NotificationName(HWND control, UINT code) {
    for (const CodeName& entry : kCodeNames) {
        if (entry.code == code && KindOf(control) == entry.kind) return entry.name;
    }
    return nullptr;
}

}  // namespace kv::test
