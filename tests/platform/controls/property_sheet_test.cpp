// Property sheets as their pages see them: creation, turning pages, OK, Apply, Cancel, keys and
// focus.
#include "sheet_fixture.h"

#include <platform/controls/page_template.h>
#include <platform/controls/property_sheet.h>

#include <random>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(SheetTest, PagesAreCreatedWhenFirstShown) {
    Open();
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha INIT", "Alpha SETACTIVE", "Alpha FOCUS"));
    EXPECT_EQ(ActivePage(), 0);
    EXPECT_EQ(Page(1), nullptr);
    EXPECT_TRUE(input::SelectPage(sheet, 1));
    EXPECT_TRUE(input::SelectPage(sheet, 0));
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha KILLACTIVE", "Beta INIT", "Beta SETACTIVE",
                                       "Beta FOCUS", "Alpha EN_KILLFOCUS", "Beta KILLACTIVE",
                                       "Alpha SETACTIVE", "Alpha FOCUS", "Beta EN_KILLFOCUS"));
    EXPECT_EQ(ActivePage(), 0);
    EXPECT_EQ(GetParent(Page(1)), sheet);
}

TEST_F(SheetTest, ThePageGetsTheSheetsOwnCopyOfItsRecord) {
    struct Extended : PROPSHEETPAGEA {
        int extra = 0;
    };
    PROPSHEETHEADERA header{};
    {
        std::vector<Extended> pages(2);
        for (size_t i = 0; i < pages.size(); ++i) {
            static_cast<PROPSHEETPAGEA&>(pages[i]) = Pages()[i];
            pages[i].dwSize = sizeof(Extended);
            pages[i].extra = 70 + static_cast<int>(i);
        }
        header.dwSize = sizeof header;
        header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS;
        header.nPages = 2;
        header.nStartPage = 1;
        header.ppsp = pages.data();
        sheet = reinterpret_cast<HWND>(PropertySheetA(&header));
    }
    const auto& record = *reinterpret_cast<const Extended*>(initParam);
    EXPECT_EQ(record.lParam, 1001);
    EXPECT_EQ(record.extra, 71);
    EXPECT_EQ(ActivePage(), 1);
}

TEST_F(SheetTest, TheSheetFitsItsLargestPage) {
    Open();
    RECT page{};
    GetClientRect(Page(0), &page);
    EXPECT_EQ(page.right, MulDiv(240, 6, 4));
    EXPECT_EQ(page.bottom, MulDiv(200, 13, 8));
    RECT tabs{};
    GetWindowRect(GetDlgItem(sheet, kSheetTabControl), &tabs);
    RECT whole{};
    GetWindowRect(sheet, &whole);
    for (int id : {IDOK, IDCANCEL, kSheetApplyButton, IDHELP}) {
        RECT button{};
        GetWindowRect(Button(id), &button);
        EXPECT_GE(button.top, tabs.bottom) << id;
        EXPECT_LE(button.right, whole.right) << id;
        EXPECT_LE(button.bottom, whole.bottom) << id;
    }
    EXPECT_EQ(KindOf(sheet), "sheet");
    char className[16] = "";
    GetClassNameA(sheet, className, sizeof className);
    EXPECT_STREQ(className, "#32770");
}

TEST_F(SheetTest, TheTitleFlagNamesTheTabAlone) {
    std::vector<PROPSHEETPAGEA> pages = Pages();
    pages[0].dwFlags |= PSP_USETITLE;
    pages[0].pszTitle = "A quite different title";
    Open(PSH_NOAPPLYNOW, pages);
    EXPECT_THAT(TakeLog()[0], "Alpha INIT");
    char text[64] = "";
    for (const char* expected : {"A quite different title", "Beta"}) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendDlgItemMessageA(sheet, kSheetTabControl, TCM_GETITEMA, expected[0] == 'B',
                            reinterpret_cast<LPARAM>(&item));
        EXPECT_STREQ(text, expected);
    }
    EXPECT_EQ(KindOf(GetDlgItem(Page(0), 10)), "edit");
    EXPECT_EQ(KindOf(GetDlgItem(Page(0), 11)), "button");
    EXPECT_EQ(Button(kSheetApplyButton), nullptr);
    EXPECT_EQ(Button(IDHELP), nullptr);
}

TEST_F(SheetTest, APageMayRefuseToBeLeftOrShown) {
    Open();
    TakeLog();
    answers["Alpha KILLACTIVE"] = TRUE;
    EXPECT_FALSE(input::SelectPage(sheet, 1));
    EXPECT_EQ(ActivePage(), 0);
    EXPECT_EQ(Page(1), nullptr);
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha KILLACTIVE"));
    answers = {{"Beta SETACTIVE", -1}};
    EXPECT_TRUE(input::SelectPage(sheet, 1));
    EXPECT_EQ(ActivePage(), 2);
}

TEST_F(SheetTest, ApplyAsksEveryPageThatWasShown) {
    Open();
    input::SelectPage(sheet, 2);
    std::vector<std::string> applied;
    OnSheetApplied(sheet, [&](HWND, bool closing) {
        applied.push_back(closing ? "closing" : "open");
        log.push_back("stored");
        return SheetAnswer::kTaken;
    });
    EXPECT_FALSE(IsWindowEnabled(Button(kSheetApplyButton)));
    SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(Page(0)), 0);
    EXPECT_TRUE(IsWindowEnabled(Button(kSheetApplyButton)));
    TakeLog();
    input::Click(Button(kSheetApplyButton));
    EXPECT_THAT(TakeLog(), ElementsAre("Gamma EN_KILLFOCUS", "Gamma KILLACTIVE", "Alpha APPLY 0",
                                       "Gamma APPLY 0", "stored", "Gamma SETACTIVE"));
    EXPECT_FALSE(IsWindowEnabled(Button(kSheetApplyButton)));
    EXPECT_FALSE(SheetEnded(sheet));
    input::Click(Button(IDOK));
    EXPECT_THAT(TakeLog(),
                ElementsAre("Gamma KILLACTIVE", "Alpha APPLY 1", "Gamma APPLY 1", "stored"));
    EXPECT_TRUE(SheetEnded(sheet));
    EXPECT_EQ(SheetResult(sheet), 1);
    EXPECT_EQ(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0), 0);
    EXPECT_THAT(applied, ElementsAre("open", "closing"));
}

TEST_F(SheetTest, WhatItsOwnerRefusesStaysOpenAndChanged) {
    Open();
    OnSheetApplied(sheet, [](HWND, bool) { return SheetAnswer::kRefused; });
    SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(Page(0)), 0);
    for (const int button : {IDOK, kSheetApplyButton}) {
        TakeLog();
        EXPECT_TRUE(input::Click(Button(button)));
        EXPECT_THAT(TakeLog().back(), "Alpha SETACTIVE");
        EXPECT_FALSE(SheetEnded(sheet));
        EXPECT_TRUE(IsWindowEnabled(Button(kSheetApplyButton)));
    }
}

TEST_F(SheetTest, OnlyRealChangesOfPagesEnableApply) {
    Open();
    input::SelectPage(sheet, 1);
    const auto alpha = reinterpret_cast<WPARAM>(Page(0));
    const auto beta = reinterpret_cast<WPARAM>(Page(1));
    SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(Button(IDOK)), 0);
    EXPECT_FALSE(IsWindowEnabled(Button(kSheetApplyButton)));
    SendMessageA(sheet, PSM_CHANGED, alpha, 0);
    SendMessageA(sheet, PSM_CHANGED, beta, 0);
    SendMessageA(sheet, PSM_UNCHANGED, alpha, 0);
    EXPECT_TRUE(IsWindowEnabled(Button(kSheetApplyButton)));
    SendMessageA(sheet, PSM_UNCHANGED, beta, 0);
    EXPECT_FALSE(IsWindowEnabled(Button(kSheetApplyButton)));
}

TEST_F(SheetTest, ARefusedApplyBringsItsPageToTheFront) {
    Open();
    input::SelectPage(sheet, 1);
    input::SelectPage(sheet, 2);
    int stored = 0;
    OnSheetApplied(sheet, [&](HWND, bool) {
        ++stored;
        return SheetAnswer::kTaken;
    });
    answers["Beta APPLY"] = PSNRET_INVALID;
    TakeLog();
    input::Click(Button(IDOK));
    EXPECT_THAT(TakeLog(), ElementsAre("Gamma EN_KILLFOCUS", "Gamma KILLACTIVE", "Alpha APPLY 1",
                                       "Beta APPLY 1", "Beta SETACTIVE", "Beta FOCUS"));
    EXPECT_EQ(ActivePage(), 1);
    answers["Beta APPLY"] = PSNRET_INVALID_NOCHANGEPAGE;
    input::SelectPage(sheet, 0);
    input::Click(Button(IDOK));
    EXPECT_EQ(ActivePage(), 0);
    answers = {{"Alpha KILLACTIVE", TRUE}};
    TakeLog();
    input::Key(VK_RETURN);
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha KILLACTIVE"));
    EXPECT_FALSE(SheetEnded(sheet));
    EXPECT_EQ(stored, 0);
}

TEST_F(SheetTest, CancelEscapeAndTheCloseBoxResetThePages) {
    const struct {
        const char* name;
        std::function<void(SheetTest&, HWND)> act;
        const char* reset;
    } ways[] = {
        {"button", [](SheetTest&, HWND s) { input::Click(GetDlgItem(s, IDCANCEL)); }, "0"},
        {"escape", [](SheetTest&, HWND) { input::Key(VK_ESCAPE); }, "0"},
        {"close box", [](SheetTest&, HWND s) { input::Close(s); }, "1"},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        Open();
        input::SelectPage(sheet, 1);
        answers = {{"Beta QUERYCANCEL", TRUE}};
        way.act(*this, sheet);
        EXPECT_FALSE(SheetEnded(sheet));
        answers.clear();
        SetFocus(GetDlgItem(Page(1), 11));
        TakeLog();
        way.act(*this, sheet);
        EXPECT_THAT(TakeLog(),
                    ElementsAre("Beta QUERYCANCEL", std::string("Alpha RESET ") + way.reset,
                                std::string("Beta RESET ") + way.reset));
        EXPECT_TRUE(SheetEnded(sheet));
        EXPECT_EQ(SheetResult(sheet), 0);
        DestroyWindow(sheet);
        EXPECT_THAT(TakeLog(), ElementsAre("Alpha DESTROY", "Beta DESTROY"));
    }
}

TEST_F(SheetTest, EnterLeavesTheFocusInTheEdit) {
    Open();
    SetFocus(GetDlgItem(Page(0), 10));
    TakeLog();
    input::Key(VK_RETURN);
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha KILLACTIVE", "Alpha APPLY 1"));
    EXPECT_EQ(GetFocus(), GetDlgItem(Page(0), 10));
}

TEST_F(SheetTest, TabWalksFromThePageThroughTheButtonsToTheTabs) {
    Open();
    SetFocus(GetDlgItem(Page(0), 11));
    std::vector<int> ids;
    for (int i = 0; i < 5; ++i) {
        input::Key(VK_TAB);
        ids.push_back(GetDlgCtrlID(GetFocus()));
    }
    EXPECT_THAT(ids, ElementsAre(IDOK, IDCANCEL, IDHELP, kSheetTabControl, 10));
    // On the tabs the arrows turn the pages, and the focus stays there.
    SetFocus(GetDlgItem(sheet, kSheetTabControl));
    input::Key(VK_RIGHT);
    EXPECT_EQ(ActivePage(), 1);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), kSheetTabControl);
}

TEST_F(SheetTest, APageChoosesItsFirstFocusAndGetsHelp) {
    atEvent = [&](const std::string& event, HWND page) {
        if (event == "Alpha FOCUS") {
            answers[event] = reinterpret_cast<LRESULT>(GetDlgItem(page, 11));
        }
    };
    Open();
    EXPECT_EQ(GetFocus(), GetDlgItem(Page(0), 11));
    TakeLog();
    input::Click(Button(IDHELP));
    EXPECT_THAT(TakeLog(), ElementsAre("Alpha HELP"));
}

TEST_F(SheetTest, AModalSheetReturnsWhatEndedIt) {
    HeadlessDisplay& display = Headless();
    HWND owner = CreateWindowExA(0, "STATIC", "owner", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                 nullptr, nullptr, nullptr);
    std::vector<PROPSHEETPAGEA> pages = Pages();
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE;
    header.hwndParent = owner;
    header.nPages = 3;
    header.ppsp = pages.data();
    for (int id : {IDOK, IDCANCEL}) {
        display.PushAnswer([&](HWND modal) {
            EXPECT_FALSE(IsWindowEnabled(owner));
            input::Click(GetDlgItem(modal, id));
        });
        EXPECT_EQ(PropertySheetA(&header), id == IDOK ? 1 : 0);
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
    display.OnUnanswered([](const std::string&) {});
    EXPECT_EQ(PropertySheetA(&header), -1);
    display.OnUnanswered(nullptr);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

// Two edits that must not be left empty: the one that is left complains, brings its page back and
// takes the focus again, while the other would complain as well.
TEST_F(SheetTest, AnEditThatTakesTheFocusBackShowsOneBoxAndItsPage) {
    Open();
    const HWND first = GetDlgItem(Page(0), 10);
    const HWND second =
        CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 5, 60, 60, 14, Page(0),
                        reinterpret_cast<HMENU>(INT_PTR{12}), nullptr, nullptr);
    bool guarded = true;
    int boxes = 0;
    int complaining = 0;
    atEvent = [&](const std::string& event, HWND edit) {
        if (event != "Alpha EN_KILLFOCUS" || (guarded && complaining > 0)) return;
        ++complaining;
        ++boxes;
        Headless().PushAnswer([](HWND box) { input::Click(GetDlgItem(box, IDOK)); });
        MessageBoxA(sheet, "Four digits, please.", "Number", MB_OK);
        SendMessageA(sheet, PSM_SETCURSEL, 0, 0);
        SetFocus(edit);
        --complaining;
    };
    OnSheetApplied(sheet, [&](HWND, bool) {
        ADD_FAILURE() << "a press that was lost to the box";
        return SheetAnswer::kTaken;
    });
    const std::function<void()> ways[] = {
        [&] { input::Click(second); },
        [&] { input::Key(VK_TAB); },
        [&] { EXPECT_FALSE(input::SelectPage(sheet, 1)); },
        [&] { input::Click(Button(IDOK)); },
        [&] { input::Click(Button(kSheetApplyButton)); },
        [&] { input::Key('A', input::kAlt); },
        [&] { SendMessageA(sheet, PSM_SETCURSEL, 2, 0); },
        // A page that takes no focus: that leaves when the old page is hidden.
        [&] { EnableWindow(Page(1), FALSE), input::SelectPage(sheet, 1); },
    };
    SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(Page(0)), 0);
    for (const bool guard : {true, false}) {
        guarded = guard;
        for (size_t way = 0; way < std::size(ways); ++way) {
            SCOPED_TRACE(way);
            guarded = true;
            complaining = 1;
            SetFocus(first);
            complaining = 0;
            guarded = guard;
            boxes = 0;
            ways[way]();
            EXPECT_EQ(ActivePage(), 0);
            EXPECT_TRUE(GetFocus() == first || (!guard && GetFocus() == second));
            EXPECT_TRUE(boxes == 1 || (!guard && boxes == 2)) << boxes;
            ASSERT_EQ(Headless().PendingAnswers(), 0u);
        }
    }
    guarded = true;
    complaining = 1;
    EXPECT_TRUE(input::SelectPage(sheet, 1));
    EXPECT_EQ(ActivePage(), 1);
}

// Whatever pages do while they are asked, one page is shown, that of the chosen tab, and the sheet
// goes on working.
TEST_F(SheetTest, PagesThatTurnPagesFromEveryNotificationLeaveOneShown) {
    constexpr unsigned kSeed = 7720;
    constexpr int kSequences = 300;
    std::mt19937 random(kSeed);
    Headless().SetPolicy([](HWND box) { input::Click(GetDlgItem(box, IDOK)); });
    for (int sequence = 0; sequence < kSequences; ++sequence) {
        SCOPED_TRACE("seed " + std::to_string(kSeed) + ", sequence " + std::to_string(sequence));
        std::map<std::string, unsigned> habits;
        atEvent = nullptr;
        answers.clear();
        Open();
        atEvent = [&](const std::string& event, HWND) {
            ASSERT_LT(log.size(), 20000u);
            const auto found =
                habits.try_emplace(event, static_cast<unsigned>(random() % 24)).first;
            const unsigned habit = found->second;
            const int page = static_cast<int>(habit % 3);
            if (habit < 9) SendMessageA(sheet, PSM_SETCURSEL, static_cast<WPARAM>(page), 0);
            if (habit >= 6 && habit < 12) SetFocus(GetDlgItem(Page(page), 10));
            if (habit == 12) MessageBoxA(sheet, "", "", MB_OK);
            if (habit == 13) SendMessageA(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0);
            if (habit == 14) SendMessageA(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
            if (habit == 15) SendMessageA(sheet, PSM_REMOVEPAGE, 2, 0);
            if (habit == 16) answers[event] = random() % 2 != 0 ? -1 : 0;
            if (habit == 17 && random() % 8 == 0) DestroyWindow(sheet);
        };
        for (int step = 0; step < 12 && IsWindow(sheet) && !SheetEnded(sheet); ++step) {
            const unsigned what = static_cast<unsigned>(random() % 8);
            if (what < 3) input::SelectPage(sheet, static_cast<int>(what));
            if (what == 3) input::Key(VK_TAB, input::kControl);
            if (what == 4) input::Key(VK_TAB);
            if (what == 5) input::Click(GetDlgItem(Page(ActivePage()), 10));
            if (what == 6) input::Click(Button(kSheetApplyButton));
            if (what == 7) SendMessageA(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(Page(0)), 0);
            EXPECT_TRUE(!IsWindow(sheet) || ActivePage() >= 0);
        }
        atEvent = nullptr;
        answers.clear();
        if (!IsWindow(sheet)) continue;
        for (const int page : {1, 0}) {
            input::SelectPage(sheet, page);
            EXPECT_EQ(ActivePage(), page);
        }
        DestroyWindow(sheet);
    }
    Headless().SetPolicy(nullptr);
}

TEST_F(SheetTest, RemovingAndCountingPages) {
    Open();
    EXPECT_TRUE(SendMessageA(sheet, PSM_REMOVEPAGE, 0, 0));
    EXPECT_THAT(TakeLog().back(), "Alpha DESTROY");
    EXPECT_EQ(SendDlgItemMessageA(sheet, kSheetTabControl, TCM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(ActivePage(), 0);
    EXPECT_TRUE(SendMessageA(sheet, PSM_REMOVEPAGE, 1, 0));
    EXPECT_FALSE(SendMessageA(sheet, PSM_REMOVEPAGE, 0, 0));
}

TEST_F(SheetTest, ASheetMayBeDestroyedByItsPages) {
    atEvent = [&](const std::string& event, HWND) {
        if (event == "Alpha APPLY" || event == "Alpha KILLACTIVE") DestroyWindow(sheet);
    };
    Open();
    input::Click(Button(IDOK));
    EXPECT_FALSE(IsWindow(sheet));
}

TEST_F(SheetTest, BadHeadersAndMissingTemplatesMakeNoSheet) {
    EXPECT_EQ(PropertySheetA(nullptr), -1);
    std::vector<PROPSHEETPAGEA> pages = Pages();
    pages[1].pszTemplate = "NOSUCHPAGE";
    EXPECT_EQ(Open(0, pages), nullptr);
    pages = Pages();
    pages[0].dwSize = 4;
    EXPECT_EQ(reinterpret_cast<INT_PTR>(Open(0, pages)), -1);
    EXPECT_THAT(TakeLog(), IsEmpty());
    EXPECT_TRUE(TopLevelWindows().empty());
    sheet = nullptr;
}

TEST_F(SheetTest, DamagedTemplatesAreRefused) {
    HRSRC resource = FindResourceA(nullptr, "PAGEA", RT_DIALOG);
    const auto* data = static_cast<const std::byte*>(LockResource(LoadResource(nullptr, resource)));
    // The header ends behind the font's name: 18 bytes, two empty names, the two texts and a size.
    const size_t header = 18 + 2 + 2 + 2 * sizeof "Alpha" + 2 + 2 * sizeof "Liberation Sans";
    for (size_t size = 0; size < header; ++size) {
        const std::vector<std::byte> cut(data, data + size);
        EXPECT_FALSE(ReadPageTemplate(cut)) << size;
    }
    EXPECT_TRUE(ReadPageTemplate(std::span(data, header)));
}

}  // namespace
}  // namespace kv
