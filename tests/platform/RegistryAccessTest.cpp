// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/RegistryAccess.h"

#include "app/ScopedEnvironment.h"
#include "platform/ProfileFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::RegistryAccess;

namespace {

/// A user config folder and a system-wide one, with the environment pointing at them.
class RegistryFolders
{
public:
    RegistryFolders()
    {
        QDir(m_user.path()).mkpath("lorvane");
        QDir(m_system.path()).mkpath("lorvane");
        m_environment.set("XDG_CONFIG_HOME", m_user.path());
        m_environment.set("XDG_CONFIG_DIRS", m_system.path());
        m_environment.unset("LORVANE_REG_SOFTWARE_INI_PATH");
        m_environment.unset("LORVANE_REG_RETRIEVED_LOGS_PATH");
        m_environment.unset("LORVANE_REG_COUNT");
    }
    QString userFile() const { return m_user.filePath("lorvane/registry.ini"); }
    QString systemFile() const { return m_system.filePath("lorvane/registry.ini"); }
    lorvane::test::ScopedEnvironment& environment() { return m_environment; }

    static void write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text);
    }

private:
    QTemporaryDir m_user;
    QTemporaryDir m_system;
    lorvane::test::ScopedEnvironment m_environment;
};

const QString appKey = QStringLiteral("HKEY_CURRENT_USER\\Software\\Tessera Ext\\Default Paths");

} // namespace

TEST(RegistryAccess, ValuesOfEveryTypeRoundTripThroughTheUsersFile)
{
    RegistryFolders folders;
    RegistryAccess registry;
    const QByteArray blob("\x00\x01\xFE\xFF", 4);
    ASSERT_TRUE(registry.writeString(appKey, "Retrieved Logs Path", "C:\\Logs\\Retrieved"));
    ASSERT_TRUE(registry.writeNumber(appKey, "Count", 4294967295u));
    ASSERT_TRUE(registry.writeBinary(appKey, "Blob", blob));
    ASSERT_TRUE(registry.writeBinary(appKey, "Nothing", {}));
    ASSERT_TRUE(registry.writeString(appKey, "", "the default"));
    // Strings that look like other types, or carry blanks and quotes at their ends.
    const QStringList awkward = {"dword:00000001", "hex:01,02", "sz:x", " padded ",
                                 "\"quoted\"",     "'",         ""};
    for (int i = 0; i < awkward.size(); ++i)
        ASSERT_TRUE(registry.writeString(appKey, QString("Awkward%1").arg(i), awkward[i]));

    EXPECT_EQ(registry.readString(appKey, "retrieved logs path"), "C:\\Logs\\Retrieved");
    EXPECT_EQ(registry.readNumber(appKey, "Count"), 4294967295u);
    EXPECT_EQ(registry.readBinary(appKey, "Blob"), blob);
    EXPECT_EQ(registry.readBinary(appKey, "Nothing"), QByteArray());
    EXPECT_EQ(registry.readString(appKey, ""), "the default");
    for (int i = 0; i < awkward.size(); ++i) {
        const auto value = registry.read(appKey, QString("Awkward%1").arg(i));
        ASSERT_TRUE(value);
        EXPECT_EQ(value->type, RegistryAccess::Type::String) << i;
        EXPECT_EQ(value->text, awkward[i]) << i;
    }
    // A value of another type is not a string, and a missing one is nothing.
    EXPECT_EQ(registry.readString(appKey, "Count"), "");
    EXPECT_FALSE(registry.readNumber(appKey, "Blob"));
    EXPECT_FALSE(registry.read(appKey, "Missing"));

    // The same key spelt another way is the same key; an unknown root is refused.
    EXPECT_EQ(
        registry.readNumber("hkey_current_user\\\\software\\Tessera Ext\\default paths\\", "COUNT"),
        4294967295u);
    EXPECT_FALSE(registry.writeString("HKCU\\Software\\X", "a", "b"));
    EXPECT_FALSE(registry.writeString("Software\\X", "a", "b"));
    EXPECT_FALSE(registry.read("HKEY_NOWHERE\\Software\\Tessera Ext\\Default Paths", "Count"));
    // Names and values that would damage the file are refused.
    EXPECT_FALSE(registry.writeString(appKey, "a=b", "1"));
    EXPECT_FALSE(registry.writeString(appKey, "line", "one\ntwo"));
    EXPECT_FALSE(registry.writeString(appKey + "\\with]bracket", "a", "1"));

    // The user's application settings are the same store.
    EXPECT_EQ(registry.readUserSetting("Tessera Ext", "Default Paths", "Retrieved Logs Path", "d"),
              "C:\\Logs\\Retrieved");
    EXPECT_EQ(registry.readUserSetting("Tessera Ext", "Default Paths", "Missing", "d"), "d");
    ASSERT_TRUE(registry.writeUserSetting("QLMLanguages", "StringTable", "LookupFile", "/l.db"));
    EXPECT_EQ(
        registry.readString("HKEY_CURRENT_USER\\Software\\QLMLanguages\\StringTable", "LookupFile"),
        "/l.db");
}

TEST(RegistryAccess, LookUpOrderAndWhereMachineWritesGo)
{
    RegistryFolders folders;
    const QString machineKey = "HKEY_LOCAL_MACHINE\\software\\qlm_software\\path";
    RegistryFolders::write(folders.systemFile(),
                           "[HKEY_LOCAL_MACHINE\\software\\qlm_software\\path]\n"
                           "software_ini_path=/etc/qlm/paths.ini\nCount=dword:0000000a\n");
    const QByteArray systemBefore = [&] {
        QFile file(folders.systemFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    RegistryAccess registry;
    EXPECT_EQ(registry.readString(machineKey, "software_ini_path"), "/etc/qlm/paths.ini");
    EXPECT_EQ(registry.readNumber(machineKey, "Count"), 10u);

    // A machine-wide write lands in the user's file, which is read first; the system file stays.
    ASSERT_TRUE(registry.writeString(machineKey, "software_ini_path", "/home/me/paths.ini"));
    EXPECT_EQ(registry.readString(machineKey, "software_ini_path"), "/home/me/paths.ini");
    EXPECT_TRUE(QFile::exists(folders.userFile()));
    QFile system(folders.systemFile());
    ASSERT_TRUE(system.open(QIODevice::ReadOnly));
    EXPECT_EQ(system.readAll(), systemBefore);
    // Values the user's file lacks still come from the system file.
    EXPECT_EQ(registry.readNumber(machineKey, "Count"), 10u);

    // The environment wins over both files, typed as a file would be.
    folders.environment().set("LORVANE_REG_SOFTWARE_INI_PATH", "/env/paths.ini");
    folders.environment().set("LORVANE_REG_COUNT", "dword:00000014");
    EXPECT_EQ(registry.readString(machineKey, "software_ini_path"), "/env/paths.ini");
    EXPECT_EQ(registry.readNumber(machineKey, "Count"), 20u);
}

TEST(RegistryAccess, EnumeratesKeysAndExportsASubtreeAsRegedit4)
{
    RegistryFolders folders;
    RegistryFolders::write(
        folders.systemFile(),
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\Colours]\nBack=dword:00ff00ff\n"
        "[HKEY_CURRENT_USER\\Software\\Other]\nX=1\n");
    RegistryAccess registry;
    const QString root = "HKEY_CURRENT_USER\\Software\\Tessera Ext";
    ASSERT_TRUE(registry.writeString(appKey, "Retrieved Logs Path", "C:\\Logs \"A\""));
    ASSERT_TRUE(registry.writeNumber(appKey, "Count", 10));
    ASSERT_TRUE(registry.writeString(appKey, "", "default"));
    ASSERT_TRUE(registry.writeBinary(root + "\\Deep\\Deeper", "Wide", QByteArray(30, '\xAB')));
    ASSERT_TRUE(registry.writeString(root + "\\colours", "Name", "mine"));

    EXPECT_EQ(registry.subKeys("HKEY_CURRENT_USER\\Software"),
              QStringList({"Other", "Tessera Ext"}));
    EXPECT_EQ(registry.subKeys(root), QStringList({"colours", "Deep", "Default Paths"}));
    EXPECT_EQ(registry.subKeys(root + "\\Deep"), QStringList({"Deeper"}));
    EXPECT_EQ(registry.subKeys(appKey), QStringList());
    EXPECT_EQ(registry.valueNames(appKey), QStringList({"Retrieved Logs Path", "Count", "@"}));
    EXPECT_EQ(registry.valueNames(root + "\\Colours"), QStringList({"Name", "Back"}));

    EXPECT_EQ(
        registry.exportText(root),
        "REGEDIT4\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext]\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\colours]\r\n"
        "\"Name\"=\"mine\"\r\n\"Back\"=dword:00ff00ff\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\Deep]\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\Deep\\Deeper]\r\n"
        "\"Wide\"=hex:ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,ab,\\\r\n"
        "  ab,ab,ab,ab,ab,ab,ab,ab\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Tessera Ext\\Default Paths]\r\n"
        "\"Retrieved Logs Path\"=\"C:\\\\Logs \\\"A\\\"\"\r\n\"Count\"=dword:0000000a\r\n"
        "@=\"default\"\r\n\r\n");
    EXPECT_EQ(registry.exportText(root + "\\Missing"), "");
    EXPECT_EQ(registry.exportText("HKEY_NOWHERE"), "");
}
