// Lists of own printers and of those of the machine.
#include <framework/list/list_store.h>
#include <framework/spool/printer_places.h>
#include <kvlist.h>
#include <list_records.h>

#include <sys/stat.h>

#include <cstring>
#include <filesystem>

#include "tests/support/printer_fixture.h"

namespace kvtest {
namespace {

using kv::StatePlace;

// The fixture's printer is an own one; the machine has one of the same name.
class Places : public PrinterTest {
 protected:
    void SetUp() override {
        PrinterTest::SetUp();
        std::filesystem::create_directories(Path("machine"));
        chmod(Path("machine").c_str(), 02775);
        SetVariable("KVPREFS_SYSTEM", Path("machine").c_str());
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter({kPrinter, "IP_192.0.2.7", StatePlace::kMachine},
                                           KV_SOURCE_DIR "/models", error))
            << error;
    }
    void TearDown() override { kv::SetPlaceInForce(StatePlace::kPerson); }

    void Use(StatePlace place) {
        std::string error;
        kv::SetPlaceInForce(place);
        ASSERT_TRUE(kvcore::MakePrinterBlock(kPrinter, printer, error)) << error;
    }
    bool AddPaper(DWORD id, DWORD scope) {
        ListHandle list = QDMMLTReadPaper(&printer);
        CustomPaperRecord paper{};
        paper.id = id;
        std::strcpy(paper.displayName, "Card");
        const bool added = QDMMLTAddPaper(list, &printer, &paper, scope) != 0;
        return QDMMLTWritePaper(list, &printer) != 0 && added;
    }
    // Common entries and own ones that were added.
    std::pair<int, int> Added() {
        ListHandle list = QDMMLTReadPaper(&printer);
        const int common = QDMMLTGetPaperNum(list, &printer, 1);
        const int both = QDMMLTGetPaperNum(list, &printer, 2);
        QDMMLTCancelPaper(list, &printer);
        return {common - described_, both - common};
    }
    int described_ = 0;
};

TEST_F(Places, PrintersOfOneNameShareNoLists) {
    using Counts = std::pair<int, int>;
    described_ = Added().first;
    EXPECT_TRUE(AddPaper(600, 1) && AddPaper(601, 2));
    EXPECT_EQ(Added(), Counts(1, 1));
    Use(StatePlace::kMachine);
    EXPECT_EQ(Added(), Counts(0, 0));
    EXPECT_TRUE(AddPaper(600, 2) && AddPaper(601, 2) && AddPaper(602, 1));
    EXPECT_EQ(Added(), Counts(1, 2));
    Use(StatePlace::kPerson);
    EXPECT_EQ(Added(), Counts(1, 1));
    EXPECT_EQ(kvlist::CopyOwnLists(StatePlace::kMachine, kPrinter, StatePlace::kPerson, kPrinter),
              0u);
    EXPECT_EQ(Added(), Counts(1, 2)) << "an own entry with the id of a common one gets another";
    EXPECT_EQ(kvlist::DropOwnLists(StatePlace::kMachine, kPrinter), 0u);
    Use(StatePlace::kMachine);
    EXPECT_EQ(Added(), Counts(1, 0));
}

TEST_F(Places, OwnEntriesOfASharedPrinterTakeNoAdministrator) {
    chmod(Path("machine").c_str(), 0755);
    chmod(State().c_str(), 0755);
    std::filesystem::permissions(Path("machine/store.sqlite"), std::filesystem::perms(0644));
    Use(StatePlace::kMachine);
    described_ = Added().first;
    Act(Actor::kUser);
    EXPECT_FALSE(AddPaper(600, 1));
    EXPECT_EQ(Open(PRINTER_ACCESS_ADMINISTER), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(AddPaper(600, 2));
    EXPECT_EQ(Added(), std::make_pair(0, 1));
    const ListHandle copy = QDMMLTReadPaper(&printer);
    for (const DWORD id : {0x4000, 0x4001}) {
        EXPECT_EQ(QDMMLTGetPaperID(copy, 512, 0x7FFFFFFF), id) << "apart from common entries";
    }
    QDMMLTCancelPaper(copy, &printer);
    kv::SetActingAsAdministrator(std::nullopt);
    {
        const kv::test::AsOrdinaryUser user;
        EXPECT_EQ(Open(PRINTER_ACCESS_ADMINISTER), nullptr) << "no member of the group";
        EXPECT_NE(Open(PRINTER_ACCESS_USE), nullptr);
        Act(Actor::kAdministrator);
        EXPECT_EQ(PutNumber("AutoConfigure", 1), ERROR_ACCESS_DENIED) << "files decide";
    }
    kv::SetActingAsAdministrator(std::nullopt);
    EXPECT_EQ(PutNumber("AutoConfigure", 1), ERROR_SUCCESS);
}

TEST_F(Places, AnOwnPrinterHidesTheOneOfTheMachine) {
    std::vector<kvspool::PlacedPrinter> printers;
    std::string problem;
    ASSERT_EQ(kvspool::ListPrinters(printers, problem), ERROR_SUCCESS) << problem;
    ASSERT_EQ(printers.size(), 2u);
    EXPECT_TRUE(printers[0].place == StatePlace::kPerson && !printers[0].isHidden);
    EXPECT_TRUE(printers[1].place == StatePlace::kMachine && printers[1].isHidden);
    std::string error;
    kv::SetPlaceInForce(StatePlace::kMachine);
    EXPECT_TRUE(kvcore::ChoosePrinter(kPrinter, error)) << error;
    EXPECT_EQ(kv::PlaceInForce(), StatePlace::kPerson);
    DWORD needed = 0, count = 0;
    EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, nullptr, 0, &needed, &count);
    std::vector<BYTE> buffer(needed);
    ASSERT_TRUE(
        EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), needed, &needed, &count));
    EXPECT_EQ(count, 1u);
    EXPECT_STREQ(reinterpret_cast<PRINTER_INFO_2A*>(buffer.data())->pPortName, "USB001");
    ASSERT_TRUE(kvcore::RemovePrinter(StatePlace::kPerson, kPrinter, error)) << error;
    EXPECT_TRUE(kvcore::ChoosePrinter(kPrinter, error)) << error;
    EXPECT_EQ(kv::PlaceInForce(), StatePlace::kMachine);
    ASSERT_TRUE(kvcore::MakePrinterBlock(kPrinter, printer, error)) << error;
    EXPECT_EQ(std::string(printer.driverPath).rfind(Path("machine"), 0), 0u) << printer.driverPath;
}

}  // namespace
}  // namespace kvtest
