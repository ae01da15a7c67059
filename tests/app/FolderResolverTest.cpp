// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderResolver.h"

#include "TemporaryInstallation.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using lorvane::FolderResolver;

TEST(FolderResolver, MissingKeyGivesTheNotFoundTextAndAnEmptyPath)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("QLM Software Path.ini"));
    lorvane::test::TemporaryInstallation::writeText(path,
                                                    QStringLiteral("[QLM Lorvane]\nProgPath=\n"));

    const FolderResolver::Lookup missing =
        FolderResolver::lookup("QLM Lorvane", "UserDataPath", path);
    EXPECT_EQ(missing.length, 0);
    EXPECT_EQ(missing.text, "::Path Not Found::  Section = QLM Lorvane\tkey = UserDataPath\t"
                            "file = " +
                                path);

    const FolderResolver resolver(path);
    EXPECT_EQ(resolver.resolve(FolderResolver::Lorvane, FolderResolver::UserDataPath, true), "");
    EXPECT_EQ(resolver.resolve(FolderResolver::Lorvane, FolderResolver::ProgPath, true), "");
    EXPECT_EQ(resolver.resolve(FolderResolver::Harvester, FolderResolver::ProgPath, true), "");
    // Further sibling tools and unknown keys are never in this program's file.
    EXPECT_EQ(resolver.resolve(5, FolderResolver::ProgPath, true), "");
    EXPECT_EQ(resolver.resolve(FolderResolver::Lorvane, 4, true), "");
    EXPECT_EQ(FolderResolver(dir.filePath("missing.ini"))
                  .resolve(FolderResolver::Lorvane, FolderResolver::ProgPath, true),
              "");
}

TEST(FolderResolver, TrailingSeparatorAndExeRules)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("paths.ini"));
    lorvane::test::TemporaryInstallation::writeText(
        path, QStringLiteral("[QLM Tessera Ext]\nUserDataPath=C:\\\nProgDataPath=C:\\Data\\\n"
                             "ProgPath=C:\\Prog\\Tessera.EXE\n"
                             "[QLM Lorvane]\nUserDataPath=/home/u/logs/\nProgDataPath=D:\\\\\n"
                             "ProgPath=/opt/lorvane/lorvane\n"
                             "[QLM Harvester]\nUserDataPath=ab\\\nProgPath=/opt/h/Harvester.exe\n"
                             "ProgDataPath=/\n"));
    const FolderResolver resolver(path);
    const auto resolve = [&](int program, int key, bool folder) {
        return resolver.resolve(program, key, folder);
    };
    using F = FolderResolver;
    EXPECT_EQ(resolve(F::TesseraExt, F::UserDataPath, true), "C:\\");
    EXPECT_EQ(resolve(F::TesseraExt, F::ProgDataPath, true), "C:\\Data");
    EXPECT_EQ(resolve(F::TesseraExt, F::ProgPath, false), "C:\\Prog");
    // Declared a folder, a name ending in ".exe" stays whole.
    EXPECT_EQ(resolve(F::TesseraExt, F::ProgPath, true), "C:\\Prog\\Tessera.EXE");
    EXPECT_EQ(resolve(F::Lorvane, F::UserDataPath, true), "/home/u/logs");
    // Only one separator goes.
    EXPECT_EQ(resolve(F::Lorvane, F::ProgDataPath, true), "D:\\");
    EXPECT_EQ(resolve(F::Lorvane, F::ProgPath, false), "/opt/lorvane/lorvane");
    EXPECT_EQ(resolve(F::Harvester, F::UserDataPath, false), "ab\\");
    EXPECT_EQ(resolve(F::Harvester, F::ProgPath, false), "/opt/h");
    EXPECT_EQ(resolve(F::Harvester, F::ProgDataPath, true), "/");
    // A file named in the call is read instead of the resolver's own.
    EXPECT_EQ(
        FolderResolver(dir.filePath("other.ini")).resolve(F::Lorvane, F::UserDataPath, true, path),
        "/home/u/logs");
}
