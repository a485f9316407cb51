#include "CQvxRegistry.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/FakeRegistryValues.h"
#include "support/TempFolder.h"
#include "support/ThrownText.h"

namespace {

using Hive = CRegistryValues::Hive;
constexpr char16_t kSep = CQvxRegistry::kSeparator;

class RegistryPaths : public ::testing::Test {
protected:
    FakeRegistryValues values;
    CRegistryValuesScope installed{values};
};

TEST_F(RegistryPaths, MachineValueWinsOverTheUsersAndAnySeparatorIsAddedOnce) {
    values.Set(Hive::LocalMachine, u"CommonDataPath", u"/machine");
    values.Set(Hive::CurrentUser, u"CommonDataPath", u"/user");
    values.Set(Hive::CurrentUser, u"CommonInstallPath", std::u16string(u"/install") + kSep);
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath), std::u16string(u"/machine") + kSep);
    EXPECT_EQ(CQvxRegistry::ReadPath(CQvxRegistry::kCommonInstallPath), std::u16string(u"/install") + kSep);
    EXPECT_EQ(CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonInstallPath, false),
              std::u16string(u"/install") + kSep + u"Velmora" + kSep);
}

TEST_F(RegistryPaths, MissingValueIsAnInstallationFaultAndAnEmptyOneAStringPositionError) {
    values.Set(Hive::LocalMachine, u"DataPath", u"/data");
    EXPECT_EQ(ThrownText([] { CQvxRegistry::ReadPath(CQvxRegistry::kInstallPath); }), MissingRegistryValueError());
    values.Set(Hive::LocalMachine, u"CommonDataPath", u"");
    values.Set(Hive::CurrentUser, u"CommonDataPath", u"/user");  // not consulted: the machine value is present
    EXPECT_THROW(CQvxRegistry::ReadPath(CQvxRegistry::kCommonDataPath), std::out_of_range);
}

TEST_F(RegistryPaths, ProgramFolderIsCreatedOnlyWhenAskedAndOnlyItsLastLevel) {
    TempFolder root;
    values.Set(Hive::LocalMachine, u"CommonDataPath", root.Path().u16string());
    const std::u16string folder = root / (u"Velmora" + std::u16string(1, kSep));

    EXPECT_EQ(CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, false), folder);
    EXPECT_FALSE(std::filesystem::exists(root.Path() / u"Velmora"));
    EXPECT_EQ(CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, true), folder);
    EXPECT_TRUE(std::filesystem::is_directory(root.Path() / u"Velmora"));
    EXPECT_EQ(CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, true), folder);

    values.Set(Hive::LocalMachine, u"CommonDataPath", root / u"chybí");
    EXPECT_EQ(ThrownText([] { CQvxRegistry::ProgramFolder(CQvxRegistry::kCommonDataPath, true); }),
              ExceptionText(u"Adresář nelze založit", 251, u"_Spolecny\\CQvxRegistry"));
}

}  // namespace
