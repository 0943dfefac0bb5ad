// The colour and the file dialogs, worked by their controls as a person works them.
#include <platform/common_dialogs/color_math.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/window.h>

#include <colordlg.h>
#include <commdlg.h>

#include <cstring>
#include <functional>
#include <vector>

#include "tests/platform/shell/scratch.h"
#include "tests/platform/support/template_builder.h"

namespace kv {
namespace {

constexpr int kNameEdit = 0x0480;
constexpr int kFileList = 0x0460;
constexpr int kFolderList = 0x0461;
constexpr int kTypeCombo = 0x0470;

std::string TextOf(HWND dialog, int id) {
    char text[600] = "";
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

void TypeInto(HWND dialog, int id, const std::string& text) {
    const int end = static_cast<int>(text.size());
    EXPECT_TRUE(input::SetEditText(GetDlgItem(dialog, id), text, end, end));
}

void Press(HWND dialog, int id) {
    EXPECT_TRUE(input::Click(GetDlgItem(dialog, id))) << id;
}

class CommonDialogs : public test::ScratchTest {
 protected:
    static void Answer(std::function<void(HWND)> answer) {
        Headless().PushAnswer(std::move(answer));
    }
    ~CommonDialogs() override { EXPECT_EQ(Headless().PendingAnswers(), 0u); }
};

TEST_F(CommonDialogs, AColourIsPickedTypedAddedAndTakenOrLeft) {
    COLORREF custom[NUM_CUSTOM_COLORS];
    std::fill(std::begin(custom), std::end(custom), RGB(255, 255, 255));
    CHOOSECOLORA request{};
    request.lStructSize = sizeof request;
    request.lpCustColors = custom;
    request.rgbResult = RGB(255, 0, 0);
    request.Flags = CC_RGBINIT;
    Answer([&](HWND dialog) {
        EXPECT_FALSE(input::CanReach(GetDlgItem(dialog, COLOR_RED))) << "the narrow form";
        Press(dialog, COLOR_MIX);
        EXPECT_EQ(TextOf(dialog, COLOR_RED) + "," + TextOf(dialog, COLOR_GREEN) + "," +
                      TextOf(dialog, COLOR_HUE) + "," + TextOf(dialog, COLOR_LUM),
                  "255,0,0,120");
        TypeInto(dialog, COLOR_GREEN, "300");
        EXPECT_EQ(TextOf(dialog, COLOR_GREEN), "300");
        EXPECT_EQ(TextOf(dialog, COLOR_HUE), "40") << "yellow";
        Press(dialog, COLOR_ADD);
        RECT grid{};
        GetClientRect(GetDlgItem(dialog, COLOR_BOX1), &grid);
        EXPECT_TRUE(
            input::ClickAt(GetDlgItem(dialog, COLOR_BOX1), {grid.right - 3, grid.bottom - 3}));
        EXPECT_EQ(TextOf(dialog, COLOR_LUM), "240") << "white is the last of them";
        input::Key(VK_LEFT);
        input::Key(VK_SPACE);
        EXPECT_EQ(TextOf(dialog, COLOR_RED), "64");
        Press(dialog, IDCANCEL);
    });
    EXPECT_FALSE(ChooseColorA(&request));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_EQ(request.rgbResult, RGB(255, 0, 0));
    EXPECT_EQ(custom[0], RGB(255, 255, 0)) << "what was added stays";
    request.Flags |= CC_FULLOPEN;
    Answer([&](HWND dialog) {
        TypeInto(dialog, COLOR_HUE, "160");
        Press(dialog, IDOK);
    });
    EXPECT_TRUE(ChooseColorA(&request));
    EXPECT_EQ(request.rgbResult, RGB(0, 0, 255));
    for (unsigned color = 0; color < 0x1000000; color += 0x10307) {
        const COLORREF back = ColorFrom(HslOf(color));
        const auto apart = [&](BYTE a, BYTE b) { return std::abs(int{a} - int{b}); };
        EXPECT_LE(apart(GetRValue(color), GetRValue(back)), 6) << color;
        EXPECT_LE(apart(GetGValue(color), GetGValue(back)), 6) << color;
        EXPECT_LE(apart(GetBValue(color), GetBValue(back)), 6) << color;
    }
}

// A template of the caller with a part of the controls, and a hook that adds a button of its own.
TEST_F(CommonDialogs, ACallersTemplateAndHookHaveTheLastWord) {
    constexpr int kGreenButton = 4403;
    static bool refuse;
    static LPARAM heard;
    TemplateBuilder sheet(WS_POPUP | WS_CAPTION, "Hues");
    sheet.Add("EDIT", "", COLOR_RED, WS_TABSTOP).Add("EDIT", "", COLOR_GREEN, WS_TABSTOP);
    sheet.Add("EDIT", "", COLOR_BLUE, WS_TABSTOP).Add("STATIC", "", COLOR_BOX1, 0);
    sheet.Add("BUTTON", "Green", kGreenButton, 0).Add("BUTTON", "OK", IDOK, 0);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sheet.Bytes().size());
    std::memcpy(GlobalLock(memory), sheet.Bytes().data(), sheet.Bytes().size());
    GlobalUnlock(memory);
    CHOOSECOLORA request{};
    request.lStructSize = sizeof request;
    request.lCustData = 77;
    request.hInstance = static_cast<HWND>(memory);
    request.Flags = CC_FULLOPEN | CC_ENABLETEMPLATEHANDLE | CC_ENABLEHOOK;
    request.lpfnHook = [](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> UINT_PTR {
        if (message == WM_INITDIALOG) {
            heard = reinterpret_cast<const CHOOSECOLORA*>(lParam)->lCustData;
            EXPECT_EQ(TextOf(dialog, COLOR_RED), "0") << "after the dialog's own";
            ShowWindow(GetDlgItem(dialog, COLOR_BOX1), SW_HIDE);
        }
        if (message == WM_COMMAND && LOWORD(wParam) == kGreenButton) {
            SendMessageA(dialog, RegisterWindowMessageA(SETRGBSTRINGA), 0, RGB(0, 200, 7));
            return TRUE;
        }
        return message == RegisterWindowMessageA(COLOROKSTRINGA) && refuse;
    };
    refuse = true;
    Answer([&](HWND dialog) {
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, COLOR_BOX1)));
        Press(dialog, kGreenButton);
        EXPECT_EQ(TextOf(dialog, COLOR_GREEN) + "," + TextOf(dialog, COLOR_BLUE), "200,7");
        Press(dialog, IDOK);
        EXPECT_TRUE(IsWindow(dialog) && request.rgbResult == 0);
        refuse = false;
        Press(dialog, IDOK);
    });
    EXPECT_TRUE(ChooseColorA(&request));
    EXPECT_EQ(heard, 77);
    EXPECT_EQ(request.rgbResult, RGB(0, 200, 7));
    GlobalFree(memory);

    const struct {
        DWORD size;
        DWORD flags;
        HWND instance;
        LPCSTR name;
        DWORD error;
    } wrong[] = {
        {8, 0, nullptr, nullptr, CDERR_STRUCTSIZE},
        {sizeof request, CC_ENABLEHOOK, nullptr, nullptr, CDERR_NOHOOK},
        {sizeof request, CC_ENABLETEMPLATE, nullptr, "HUES", CDERR_NOHINSTANCE},
        {sizeof request, CC_ENABLETEMPLATE, reinterpret_cast<HWND>(GetModuleHandleA(nullptr)),
         nullptr, CDERR_NOTEMPLATE},
        {sizeof request, CC_ENABLETEMPLATE, reinterpret_cast<HWND>(GetModuleHandleA(nullptr)),
         "HUES", CDERR_FINDRESFAILURE},
        {sizeof request, CC_ENABLETEMPLATEHANDLE, static_cast<HWND>(memory), nullptr,
         CDERR_FINDRESFAILURE},
    };
    for (const auto& row : wrong) {
        CHOOSECOLORA bad{};
        bad.lStructSize = row.size;
        bad.Flags = row.flags;
        bad.hInstance = row.instance;
        bad.lpTemplateName = row.name;
        EXPECT_FALSE(ChooseColorA(&bad));
        EXPECT_EQ(CommDlgExtendedError(), row.error);
    }
}

class FileNames : public CommonDialogs {
 protected:
    FileNames() {
        Write("jobs/form.prn", "");
        Write("jobs/Letter.PRN", "");
        Write("jobs/notes.txt", "");
        Write("jobs/inner/deep.prn", "");
        request.lStructSize = sizeof request;
        request.lpstrFilter = "Overlay Files (*.PRN)\0*.prn\0Texts\0*.txt;*.md\0";
        request.lpstrFile = file;
        request.nMaxFile = sizeof file;
        request.lpstrFileTitle = title;
        request.nMaxFileTitle = sizeof title;
        request.lpstrInitialDir = folder.c_str();
        request.lpstrTitle = "Browse";
        request.lpstrDefExt = "prn";
        request.Flags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    }
    static std::vector<std::string> Entries(HWND dialog, int list) {
        std::vector<std::string> entries;
        const HWND window = GetDlgItem(dialog, list);
        const LRESULT count = SendMessageA(window, LB_GETCOUNT, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
            char text[260] = "";
            SendMessageA(window, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
            entries.push_back(text);
        }
        return entries;
    }

    const std::string folder = Path("jobs");
    OPENFILENAMEA request{};
    char file[260] = "";
    char title[256] = "";
};

TEST_F(FileNames, AnExistingFileIsChosenByWalkingThroughFolders) {
    int boxes = 0;
    Answer([&](HWND dialog) {
        using Lines = std::vector<std::string>;
        EXPECT_EQ(TextOf(dialog, kNameEdit), "");
        EXPECT_EQ(Entries(dialog, kFileList), (Lines{"form.prn", "Letter.PRN"}));
        EXPECT_EQ(Entries(dialog, kFolderList), (Lines{"..", "inner"}));
        input::Choose(GetDlgItem(dialog, kTypeCombo), 1);
        EXPECT_EQ(Entries(dialog, kFileList), (Lines{"notes.txt"}));
        // What is not there is said, and the dialog stays.
        for (const char* wrong : {"missing", "nowhere/form.prn"}) {
            Answer([&](HWND box) { ++boxes, Press(box, IDOK); });
            TypeInto(dialog, kNameEdit, wrong);
            Press(dialog, IDOK);
            EXPECT_TRUE(IsWindow(dialog));
        }
        TypeInto(dialog, kNameEdit, "*.prn");
        Press(dialog, IDOK);
        EXPECT_EQ(Entries(dialog, kFileList), (Lines{"form.prn", "Letter.PRN"}));
        TypeInto(dialog, kNameEdit, "inner");
        Press(dialog, IDOK);
        EXPECT_EQ(Entries(dialog, kFileList), (Lines{"deep.prn"})) << "still the typed pattern";
        TypeInto(dialog, kNameEdit, "deep");
        Press(dialog, IDOK);
    });
    ASSERT_TRUE(GetOpenFileNameA(&request));
    EXPECT_EQ(boxes, 2);
    EXPECT_EQ(file, folder + "/inner/deep.prn") << "with the default extension";
    EXPECT_STREQ(title, "deep.prn");
    EXPECT_STREQ(file + request.nFileOffset, "deep.prn");
    EXPECT_STREQ(file + request.nFileExtension, "prn");
    EXPECT_EQ(request.nFilterIndex, 2u);
    EXPECT_EQ(request.Flags & OFN_EXTENSIONDIFFERENT, 0u);
    // The name that comes in is shown, and its folder opened.
    Answer([&](HWND dialog) {
        EXPECT_EQ(TextOf(dialog, kNameEdit), "deep.prn");
        EXPECT_EQ(Entries(dialog, kFolderList), (std::vector<std::string>{".."}));
        TypeInto(dialog, kNameEdit, "../notes.txt");
        Press(dialog, IDOK);
    });
    ASSERT_TRUE(GetOpenFileNameA(&request));
    EXPECT_NE(request.Flags & OFN_EXTENSIONDIFFERENT, 0u);
    const std::string before = file;
    Answer([&](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_FALSE(GetOpenFileNameA(&request));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_EQ(file, before);
}

TEST_F(FileNames, SavingAsksBeforeItReplacesAndABufferMayBeTooSmall) {
    request.Flags = OFN_OVERWRITEPROMPT;
    for (const int answer : {IDNO, IDYES}) {
        file[0] = '\0';
        Answer([&](HWND dialog) {
            TypeInto(dialog, kNameEdit, "form");
            Answer([&](HWND box) { Press(box, answer); });
            Press(dialog, IDOK);
            EXPECT_EQ(file[0] == '\0', answer == IDNO);
            if (answer == IDNO) Press(dialog, IDCANCEL);
        });
        // Without an extension there is no such file yet, with it there is.
        EXPECT_EQ(GetSaveFileNameA(&request), answer == IDYES);
    }
    file[0] = '\0';
    request.nMaxFile = 4;
    Answer([&](HWND dialog) {
        TypeInto(dialog, kNameEdit, "new.prn");
        Press(dialog, IDOK);
    });
    EXPECT_FALSE(GetSaveFileNameA(&request));
    EXPECT_EQ(CommDlgExtendedError(), FNERR_BUFFERTOOSMALL);
    WORD needed = 0;
    std::memcpy(&needed, file, sizeof needed);
    EXPECT_EQ(needed, folder.size() + sizeof "/new.prn");
}

}  // namespace
}  // namespace kv
