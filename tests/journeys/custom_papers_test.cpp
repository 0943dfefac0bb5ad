// Custom papers: the list, the editor in both units, limits, names, rights, and what OK and Cancel
// make of it all.
#include <kvlist.h>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

class CustomPapersTest : public Preferences {
 protected:
    // The stored papers that users made.
    std::vector<CustomPaperRecord> Stored() {
        const ListHandle list = QDMMLTReadPaper(&printer);
        std::vector<CustomPaperRecord> all(QDMMLTGetPaperNum(list, &printer, 7));
        QDMMLTGetPaperArray(list, &printer, all.data(), 7);
        QDMMLTCancelPaper(list, &printer);
        std::erase_if(all, [](const CustomPaperRecord& paper) { return paper.id < 512; });
        return all;
    }
    // Opens the list, works it and presses one of its buttons.
    void InList(int closer, const std::function<void(HWND)>& act) {
        if (sheet_ == nullptr) OpenSheet();
        InDialog(kBasic, IDC_BTN_CUSTOM_PAPER, closer, act);
    }
    // Presses New or Edit, types into the editor and presses OK; each further answer is for a
    // question.
    void InEditor(HWND list, int opener, const std::function<void(HWND)>& act,
                  std::vector<int> answers = {}, bool asksFirst = false) {
        if (asksFirst) Answer(IDOK);
        kv::Headless().PushAnswer([=, this](HWND dialog) {
            act(dialog);
            for (const int answer : answers) Answer(answer);
            kv::input::Click(GetDlgItem(dialog, IDOK));
            if (stays) kv::input::Click(GetDlgItem(dialog, IDCANCEL));
        });
        EXPECT_TRUE(kv::input::Click(GetDlgItem(list, opener)));
    }
    void Answer(int button) {
        kv::Headless().PushAnswer([=, this](HWND box) {
            said += Text(GetDlgItem(box, 0xFFFF)) + "|";
            EXPECT_TRUE(kv::input::Click(GetDlgItem(box, button)));
        });
    }
    static void Type(HWND dialog, int id, const char* text) {
        kvtest::TypeIn(GetDlgItem(dialog, id), text);
    }
    static std::string Line(HWND dialog, int row) {
        return kvtest::Rows(GetDlgItem(dialog, IDC_LIST_PAPERS)).at(static_cast<size_t>(row));
    }
    static bool Can(HWND dialog, int id) {
        return IsWindowEnabled(GetDlgItem(dialog, id)) != FALSE;
    }

    std::string said;
    bool stays = false;
};

TEST_F(CustomPapersTest, APaperIsAddedInInchesStoredInBothAndChosen) {
    InList(IDOK, [&](HWND list) {
        EXPECT_EQ(Text(list), "Custom Paper Sizes");
        EXPECT_FALSE(Can(list, IDC_BTN_PAPER_EDIT)) << "there is none";
        InEditor(list, IDC_BTN_PAPER_NEW,
                 [](HWND editor) {
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_NAME)), "New Paper -1-");
                     kv::input::Click(GetDlgItem(editor, IDC_RADIO_PAPER_INCH));
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_ST_PAPER_WIDTH_INCH_RANGE)),
                               "[3 9/16 - 8 8/16]");
                     Type(editor, IDC_EDIT_PAPER_WIDTH, "8");
                     Type(editor, IDC_EDIT_PAPER_WIDTH_16, "8");
                     Type(editor, IDC_EDIT_PAPER_HEIGHT, "11");
                     Type(editor, IDC_EDIT_PAPER_HEIGHT_16, "0");
                 },
                 {IDYES});
        EXPECT_EQ(said, "Save this Custom Paper as common?|");
        EXPECT_EQ(Line(list, 0), "New Paper -1-\t(8 8/16 x 11 0/16 inch)");
        EXPECT_TRUE(Stored().empty()) << "not before OK";
    });
    const std::vector<CustomPaperRecord> stored = Stored();
    ASSERT_EQ(stored.size(), 1u);
    EXPECT_EQ(stored[0].widthTenths, 2160u);
    EXPECT_EQ(stored[0].heightTenths, 2790u);
    EXPECT_EQ(stored[0].widthInches, 8u << 16 | 8u);
    EXPECT_EQ(stored[0].unit, 1u);
    EXPECT_EQ(static_cast<DWORD>(Public().dmPaperSize), stored[0].id);
    EXPECT_EQ(Selected(Item(IDC_COMBO_PAPER_SIZE)), "New Paper -1-");
    EXPECT_TRUE(CanApply());
}

TEST_F(CustomPapersTest, SizesAreHeldWithinTheirLimitsAndNamesAreKept) {
    InList(IDOK, [&](HWND list) {
        InEditor(list, IDC_BTN_PAPER_NEW,
                 [](HWND editor) {
                     kv::input::Click(GetDlgItem(editor, IDC_RADIO_PAPER_MM));
                     Type(editor, IDC_EDIT_PAPER_NAME, "  Card");
                     Type(editor, IDC_EDIT_PAPER_WIDTH, "400");
                     Type(editor, IDC_EDIT_PAPER_HEIGHT, "180");
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_WIDTH)), "216");
                     kv::input::Click(GetDlgItem(editor, IDC_RADIO_PAPER_INCH));
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_WIDTH)), "8");
                     Type(editor, IDC_EDIT_PAPER_WIDTH, "2");
                     kv::input::Focus(GetDlgItem(editor, IDC_EDIT_PAPER_NAME));
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_WIDTH_16)), "9") << "3 9/16";
                     kv::input::Click(GetDlgItem(editor, IDC_RADIO_PAPER_MM));
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_WIDTH)), "92");
                     Type(editor, IDC_EDIT_PAPER_WIDTH, "120");
                     Type(editor, IDC_EDIT_PAPER_NAME, "");
                     kv::input::Focus(GetDlgItem(editor, IDC_EDIT_PAPER_WIDTH));
                     EXPECT_EQ(Text(GetDlgItem(editor, IDC_EDIT_PAPER_NAME)), "New Paper -1-");
                     Type(editor, IDC_EDIT_PAPER_NAME, "  Card");
                 },
                 {IDNO});
        EXPECT_EQ(Line(list, 0), "Card\t(120.0 x 180.0 mm)");
        // The same name once more: kept apart, then overwritten.
        const auto again = [](HWND editor) {
            Type(editor, IDC_EDIT_PAPER_NAME, "Card");
            Type(editor, IDC_EDIT_PAPER_WIDTH, "150");
        };
        stays = true;
        said.clear();
        InEditor(list, IDC_BTN_PAPER_NEW, again, {IDCANCEL});
        EXPECT_EQ(said, "\"Card\" is already registered.  Do you want to overwrite it?|");
        EXPECT_EQ(Line(list, 0), "Card\t(120.0 x 180.0 mm)");
        stays = false;
        InEditor(list, IDC_BTN_PAPER_NEW, again, {IDOK});
        EXPECT_EQ(Line(list, 0), "Card\t(150.0 x 297.0 mm)");
        EXPECT_EQ(SendMessageA(GetDlgItem(list, IDC_LIST_PAPERS), LB_GETCOUNT, 0, 0), 1);
        InEditor(
            list, IDC_BTN_PAPER_EDIT,
            [](HWND editor) { Type(editor, IDC_EDIT_PAPER_HEIGHT, "200"); }, {}, true);
        EXPECT_EQ(Line(list, 0), "Card\t(150.0 x 200.0 mm)");
    });
    ASSERT_EQ(Stored().size(), 1u);
    EXPECT_EQ(Stored()[0].heightTenths, 2000u);
    EXPECT_EQ(Stored()[0].unit, 0u);
    // Cancel drops everything since the list was opened.
    const SHORT chosen = Public().dmPaperSize;
    InList(IDCANCEL, [&](HWND list) {
        Answer(IDOK);
        kv::input::Click(GetDlgItem(list, IDC_BTN_PAPER_DELETE));
        EXPECT_EQ(SendMessageA(GetDlgItem(list, IDC_LIST_PAPERS), LB_GETCOUNT, 0, 0), 0);
    });
    EXPECT_EQ(Stored().size(), 1u);
    EXPECT_EQ(Public().dmPaperSize, chosen);
}

TEST_F(CustomPapersTest, LimitsRightsAndRulesDecideWhatTheButtonsDo) {
    UseRules("[CustomPaper]\nNTNum=1\nCurrentUser=1\n");
    const auto add = [&](HWND list, std::vector<int> answers) {
        InEditor(
            list, IDC_BTN_PAPER_NEW, [](HWND) {}, std::move(answers));
    };
    InList(IDOK, [&](HWND list) {
        add(list, {IDYES});
        add(list, {});
        EXPECT_EQ(said, "Save this Custom Paper as common?|")
            << "then there is room for an own one only";
        EXPECT_FALSE(Can(list, IDC_BTN_PAPER_NEW));
        EXPECT_TRUE(Can(list, IDC_BTN_PAPER_DELETE));
    });
    ASSERT_EQ(Stored().size(), 2u);
    CloseSheet();
    UseRules(
        "[CustomPaper]\nNTNum=1\nCurrentUser=1\n[ConflictConditions]\n"
        "CustomPaperList0=(" +
        std::to_string(Stored()[1].id) + "),0,1,(CustomPaperDelete,0,0,(0),H)\n");
    InList(IDOK, [&](HWND list) {
        kv::input::Choose(GetDlgItem(list, IDC_LIST_PAPERS), 1);
        EXPECT_FALSE(Can(list, IDC_BTN_PAPER_DELETE)) << "a rule says so";
        kv::input::Choose(GetDlgItem(list, IDC_LIST_PAPERS), 0);
        EXPECT_TRUE(Can(list, IDC_BTN_PAPER_DELETE));
        Answer(IDOK);
        kv::input::Click(GetDlgItem(list, IDC_BTN_PAPER_DELETE));
        EXPECT_EQ(SendMessageA(GetDlgItem(list, IDC_LIST_PAPERS), LB_GETCURSEL, 0, 0), 0)
            << "the new top paper";
        EXPECT_TRUE(Can(list, IDC_BTN_PAPER_NEW));
    });
    EXPECT_EQ(Stored().size(), 1u);
}

}  // namespace
}  // namespace journey
