// The administrator test as driver code makes it, and what tokens and identifiers do with wrong
// arguments.
#include <cstring>
#include <vector>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

class Token : public ScratchTest {
 protected:
    static bool IsInAdministratorsGroup() {
        HANDLE token{};
        EXPECT_FALSE(OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token));
        EXPECT_EQ(GetLastError(), ERROR_NO_TOKEN);
        EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
        DWORD size = 0;
        EXPECT_FALSE(GetTokenInformation(token, TokenGroups, nullptr, 0, &size));
        EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
        std::vector<BYTE> buffer(size);
        DWORD needed = 0;
        EXPECT_FALSE(GetTokenInformation(token, TokenGroups, buffer.data(), size - 1, &needed));
        EXPECT_TRUE(GetTokenInformation(token, TokenGroups, buffer.data(), size, &needed));
        EXPECT_EQ(needed, size);
        EXPECT_TRUE(CloseHandle(token));

        SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
        PSID administrators{};
        EXPECT_TRUE(AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID,
                                             DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0,
                                             &administrators));
        const auto* groups = reinterpret_cast<const TOKEN_GROUPS*>(buffer.data());
        EXPECT_GE(groups->GroupCount, 2u);
        bool found = false;
        for (DWORD i = 0; i < groups->GroupCount; ++i) {
            found = found || EqualSid(groups->Groups[i].Sid, administrators);
        }
        EXPECT_EQ(FreeSid(administrators), nullptr);
        EXPECT_EQ(FreeSid(administrators), administrators) << "a second release is refused";
        return found;
    }
};

TEST_F(Token, GroupsHoldAdministratorsOnlyForAnAdministrator) {
    SetActingAsAdministrator(true);
    EXPECT_TRUE(IsInAdministratorsGroup());
    SetActingAsAdministrator(false);
    EXPECT_FALSE(IsInAdministratorsGroup());
    SetActingAsAdministrator(std::nullopt);
    EXPECT_EQ(IsInAdministratorsGroup(), IsSystemAdministrator());
    EXPECT_TRUE(geteuid() != 0 || IsSystemAdministrator());
}

TEST_F(Token, TheUsersIdentifierIsTheSameAtEachQuestion) {
    HANDLE token{};
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    alignas(8) BYTE first[128];
    alignas(8) BYTE second[128];
    DWORD needed = 0;
    ASSERT_TRUE(GetTokenInformation(token, TokenUser, first, sizeof first, &needed));
    ASSERT_TRUE(GetTokenInformation(token, TokenUser, second, sizeof second, &needed));
    EXPECT_TRUE(EqualSid(reinterpret_cast<SID_AND_ATTRIBUTES*>(first)->Sid,
                         reinterpret_cast<SID_AND_ATTRIBUTES*>(second)->Sid));
    CloseHandle(token);
}

TEST_F(Token, WrongHandlesAndArgumentsFail) {
    HANDLE token{};
    DWORD needed = 0;
    EXPECT_FALSE(OpenProcessToken(nullptr, TOKEN_QUERY, &token));
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), 0, &token));
    EXPECT_FALSE(GetTokenInformation(token, TokenGroups, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(CloseHandle(token));
    EXPECT_FALSE(CloseHandle(token));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(GetTokenInformation(token, TokenGroups, nullptr, 0, &needed));
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID sid{};
    EXPECT_FALSE(AllocateAndInitializeSid(&authority, 9, 0, 0, 0, 0, 0, 0, 0, 0, &sid));
    EXPECT_FALSE(EqualSid(nullptr, nullptr));
}

}  // namespace
}  // namespace kv::test
