// The Device Options page: options come and go with what depends on them, and who may do it.
#include <kvlist.h>

#include <set>

#include "tests/journeys/preferences.h"
#include "tests/support/running_printer.h"

namespace journey {
namespace {

enum OptionState { kInstalled, kNotInstalled };
constexpr int kResolve = 9458;
constexpr DWORD kTray2 = 0x4, kTray3 = 0x8, kTray4 = 0x10, kDuplex = 0x80, kSorter = 0x400,
                kCabinet = 0x800000, kMultiStaple = 0x80000, kBase = 0x1;

class DevicePage : public Preferences {
 protected:
    // What the rows say, in their order: the label, and "+" or "-" for its state.
    std::string Rows() {
        std::string rows;
        for (const std::string& row : kvtest::Rows(Item(IDC_LIST_OPTIONS, kDevice))) {
            const size_t state = row.find(":\t");
            if (state == std::string::npos) return "no tab in " + row;
            rows += row.substr(0, state);
            rows += row.substr(state + 2) == "Installed" ? "+ " : "- ";
        }
        return rows;
    }
    int RowOf(const std::string& label) {
        const HWND list = Item(IDC_LIST_OPTIONS, kDevice);
        const std::string start = label + ":";
        return static_cast<int>(
            SendMessageA(list, LB_FINDSTRING, -1, reinterpret_cast<LPARAM>(start.c_str())));
    }
    // As a person does it: the row, then its other state.
    void Put(const std::string& label, OptionState state) {
        ASSERT_TRUE(kv::input::Choose(Item(IDC_LIST_OPTIONS, kDevice), RowOf(label))) << label;
        ASSERT_TRUE(kv::input::Choose(Item(IDC_COMBO_INSTALLED_STATE, kDevice), state)) << label;
    }
    std::set<DWORD> StoredSources(DWORD number) {
        const ListHandle list = QDMMLTReadBin(&printer, number);
        std::vector<BinRecord> bins(QDMMLTGetBinNum(list, &printer));
        QDMMLTGetBinArray(list, &printer, bins.data());
        std::set<DWORD> sources;
        for (const BinRecord& bin : bins) sources.insert(bin.identifier);
        QDMMLTCancelBin(list, &printer);
        return sources;
    }
    DWORD& Options() { return Settings().mdmInstalledOptions; }
};

TEST_F(DevicePage, AnOptionComesWithEverythingElseAtItsDefaultAndItsSourceOnOffer) {
    Settings().mdmMailBinAssign = 0x700;
    OpenSheet();
    ChooseValue(IDC_COMBO_MEDIA_TYPE, 256);
    EXPECT_EQ(Rows(),
              "Tray 3- Tray4- LCC- 2-step Cabinet- Multi-staple Finisher- Single-staple "
              "Finisher- 10-bin Mail-bin Sorter- Tray 2+ Duplex Option+ ");
    Put("Tray 3", kInstalled);
    EXPECT_EQ(Options(), kBase | kTray2 | kTray3 | kDuplex);
    EXPECT_EQ(Settings().MediaType, 1u);
    EXPECT_EQ(Settings().mdmMailBinAssign, 0x700u) << "a fact of the printer";
    EXPECT_EQ(Settings().mdmOtherSettings & 0x50, 0x50u);
    EXPECT_TRUE(CanApply());
    // The row has moved; the same place is still selected, and the box shows what is there now.
    EXPECT_EQ(Rows().substr(0, 20), "Tray4- LCC- 2-step C");
    EXPECT_EQ(Selected(Item(IDC_COMBO_INSTALLED_STATE, kDevice)), "Not Installed");
    EXPECT_EQ(StoredSources(0), (std::set<DWORD>{7, 1, 2, 3, 4}));
    EXPECT_EQ(StoredSources(1), (std::set<DWORD>{7, 1, 2, 3, 4}));
    EXPECT_GE(IndexOf(Item(IDC_COMBO_PAPER_SOURCE), 3), 0) << "the other pages follow";
    // Choosing the state that the option has changes nothing, nor does a choice without a row.
    ChooseValue(IDC_COMBO_MEDIA_TYPE, 256);
    Put("Tray 3", kInstalled);
    SendMessageA(Item(IDC_LIST_OPTIONS, kDevice), LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    kv::input::Choose(Item(IDC_COMBO_INSTALLED_STATE, kDevice), kNotInstalled);
    EXPECT_EQ(Settings().MediaType, 256u);
    EXPECT_EQ(Options(), kBase | kTray2 | kTray3 | kDuplex);
}

// label, its new state, the answer when other options are in the way, what is installed afterwards,
// the paper source and the output destination
struct Change {
    DWORD before;
    const char* label;
    OptionState state;
    int answer;
    DWORD after;
    SHORT source;
    DWORD outBin;
};
constexpr DWORD kTrays = kBase | kTray2 | kTray3 | kTray4;
constexpr Change kChanges[] = {
    {kBase | kTray2, "Duplex Option", kInstalled, 0, kBase | kTray2 | kDuplex, 7, 65},
    {kBase | kTray2, "Tray 2", kNotInstalled, 0, kBase, 7, 65},
    {kBase, "Tray4", kInstalled, kResolve, kTrays, 7, 65},
    {kBase, "Tray4", kInstalled, IDCANCEL, kBase, 4, 75},
    {kTrays, "Tray 2", kNotInstalled, kResolve, kBase, 7, 65},
    {kTrays, "Multi-staple Finisher", kInstalled, 0, kTrays | kMultiStaple, 7, 76},
    {kTrays | kSorter, "Multi-staple Finisher", kInstalled, kResolve, kTrays | kMultiStaple, 7, 76},
    {kTrays, "2-step Cabinet", kInstalled, kResolve, kBase | kTray2 | kCabinet, 7, 65},
};

TEST_F(DevicePage, OptionsTakeAlongWhatDependsOnThemOnceTheUserAgrees) {
    for (const Change& change : kChanges) {
        SCOPED_TRACE(change.label);
        Options() = change.before;
        Public().dmDefaultSource = 4;
        Settings().mdmOutBin = 75;
        OpenSheet();
        if (change.answer != 0) {
            kv::Headless().PushAnswer([&](HWND dialog) {
                EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, change.answer)));
            });
        }
        Put(change.label, change.state);
        EXPECT_EQ(Options(), change.after);
        EXPECT_EQ(Public().dmDefaultSource, change.source);
        EXPECT_EQ(Settings().mdmOutBin, change.outBin);
        EXPECT_EQ(kv::Headless().PendingAnswers(), 0u);
        CloseSheet();
    }
}

TEST_F(DevicePage, WhoDoesNotAdministerSeesTheOptionsAndChangesNone) {
    Options() = kBase | kTray2 | kSorter;
    OpenSheet();
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_BTN_MAILBOX, kDevice)));
    EXPECT_EQ(GetFocus(), Item(IDC_LIST_OPTIONS, kDevice));
    CloseSheet();
    Act(Actor::kUser);
    Options() = 0;
    OpenSheet();
    EXPECT_EQ(Options(), kBase | kTray2 | kSorter) << "the printer's own";
    EXPECT_FALSE(IsWindowVisible(Item(IDC_CHK_AUTO_CONFIG, kDevice)));
    for (const int id : {IDC_LIST_OPTIONS, IDC_COMBO_INSTALLED_STATE}) {
        EXPECT_FALSE(IsWindowEnabled(Item(id, kDevice))) << id;
    }
    EXPECT_EQ(Selected(Item(IDC_COMBO_INSTALLED_STATE, kDevice)), "") << "of no row";
    EXPECT_EQ(Rows().find("Tray 2-"), std::string::npos);
    TypeInto(IDC_EDIT_USER_NAME, "an(n)a.maria", kDevice);
    EXPECT_FALSE(IsWindowEnabled(Item(IDC_LIST_OPTIONS, kDevice))) << "after commands too";
    EXPECT_STREQ(Settings().userName, "annamari");
    EXPECT_TRUE(CanApply());
}

TEST_F(DevicePage, AutoConfigureFollowsWhatThePrinterReports) {
    const std::string port = "http://" + kvtest::OwnAddress() + "/ipp";
    ASSERT_EQ(kvtest::PutPrinterPort(kPrinter, port, 0), ERROR_SUCCESS);
    kvtest::RunningPrinter running(kvtest::BehaviourOf("TRAY2 TRAY3"), kvtest::OwnAddress(), 9100);
    const auto asked = [&] {
        const std::string received = running.Received();
        int count = 0;
        for (size_t at = 0; (at = received.find("CONFIG", at)) != received.npos; ++at) ++count;
        return count;
    };
    Options() = kBase | kTray2 | kDuplex;
    OpenSheet();
    EXPECT_EQ(asked(), 0) << "Auto Configure is off";
    // The duplex unit would go: refused, the box goes back.
    const HWND box = Item(IDC_CHK_AUTO_CONFIG, kDevice);
    EXPECT_TRUE(IsWindowEnabled(box));
    kv::Headless().PushAnswer(
        [](HWND question) { EXPECT_TRUE(kv::input::Click(GetDlgItem(question, IDCANCEL))); });
    kv::input::Click(box);
    EXPECT_EQ(asked(), 1);
    EXPECT_FALSE(IsChecked(box));
    EXPECT_EQ(Options(), kBase | kTray2 | kDuplex);
    EXPECT_EQ(GetFocus(), Item(IDC_LIST_OPTIONS, kDevice));
    // Agreed: the list follows and is the printer's own from now on.
    kv::Headless().PushAnswer(
        [](HWND question) { EXPECT_TRUE(kv::input::Click(GetDlgItem(question, IDOK))); });
    kv::input::Click(box);
    EXPECT_TRUE(IsChecked(box));
    EXPECT_EQ(Options(), kBase | kTray2 | kTray3);
    EXPECT_EQ(Rows().substr(Rows().find("Tray 2")), "Tray 2+ Tray 3+ ");
    EXPECT_FALSE(IsWindowEnabled(Item(IDC_LIST_OPTIONS, kDevice)));
    EXPECT_GE(IndexOf(Item(IDC_COMBO_PAPER_SOURCE), 3), 0);
    // Defaults asks again, and so does the next sheet as soon as its Basic page shows.
    Options() = kBase | kTray2;
    kv::input::Click(Item(IDC_DEFAULTS, kDevice));
    EXPECT_EQ(asked(), 2) << "Auto Configure is off by default";
    kv::input::Click(box);
    EXPECT_EQ(Options(), kBase | kTray2 | kTray3);
    CloseSheet();
    Options() = kBase | kTray2;
    OpenSheet();
    EXPECT_EQ(asked(), 4);
    EXPECT_EQ(Options(), kBase | kTray2 | kTray3);
    EXPECT_GE(IndexOf(Item(IDC_COMBO_PAPER_SOURCE), 3), 0) << "the page shows it at once";
}

TEST_F(DevicePage, OfTwoAdministratorsEachKeepsTheirOwnUntilTheLastCloses) {
    const auto published = [] {
        const HANDLE handle = Open(PRINTER_ACCESS_USE);
        DWORD type = 0, size = 0, options = 0;
        char name[] = "InstalledOptions";
        GetPrinterDataA(handle, name, &type, reinterpret_cast<BYTE*>(&options), sizeof options,
                        &size);
        ClosePrinter(handle);
        return options;
    };
    Options() = kBase | kTray2;
    OpenSheet();
    auto others = record_;
    kvhost::SheetRequest request = request_;
    request.record = others.data();
    const HWND second = module_->CreateSheet(request);
    ASSERT_NE(second, nullptr);
    kv::PumpPendingMessages();
    Put("Tray 3", kInstalled);
    const auto& kept =
        kvui::PrivatePart(reinterpret_cast<DEVMODEA*>(others.data()))->mdmInstalledOptions;
    EXPECT_EQ(kept, kBase | kTray2);
    CloseSheet();
    EXPECT_EQ(published(), kBase | kTray2 | kTray3);
    DestroyWindow(second);
    EXPECT_EQ(published(), kBase | kTray2);
}

}  // namespace
}  // namespace journey
