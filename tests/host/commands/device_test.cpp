// The printer itself: mailboxes.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

TEST_F(CommandLine, MailboxesAreAssignedAndTheDestinationFollowsTheOptions) {
    const Ran without = Run("set ComboMailBoxAssign=MBAssign8");
    EXPECT_EQ(without.status, 1);
    EXPECT_NE(without.errors.find("BtnMBSetting is disabled now"), std::string::npos);
    ASSERT_EQ(Run("device install Mailbin10").status, 0);
    EXPECT_EQ(Run("set ComboMailBoxAssign=MBAssign8").status, 0);
    EXPECT_EQ(Run("get mdmMailBinAssign").output, "mdmMailBinAssign=1792\n");
    const Ran bin = Run("set ComboOutputSetting=69");
    EXPECT_EQ(bin.status, 1);
    EXPECT_NE(bin.errors.find("follows from what is installed (`kvprefs device`)"),
              std::string::npos)
        << bin.errors;
}

}  // namespace
}  // namespace kvtest
