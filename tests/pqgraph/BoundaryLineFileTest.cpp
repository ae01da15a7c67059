// SPDX-License-Identifier: GPL-3.0-or-later
// Reading boundary line files: the line count rule, the point texts, the keys' ranges, and the
// message and fallback of a refused file.
#include "pqgraph/BoundaryLineFile.h"

#include "pqgraph/PqGraphSession.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace lorvane;

namespace {

QString writeFile(const QTemporaryDir& dir, const char* name, const QString& body)
{
    const QString path = dir.filePath(QString::fromLatin1(name));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[qlmpqgraph]\r\n" + body.toUtf8());
    return path;
}

/// A line of two points in set 1 and none in set 2.
QString line(int i, const QString& first = QStringLiteral("0.01/50"))
{
    return QStringLiteral("l%1_set1_points=2\nl%1_set2_points=0\nl%1_set1_xy1=%2\nl%1_set1_xy2="
                          "10/90\n")
        .arg(i)
        .arg(first);
}

struct FileCase
{
    const char* name;
    QString body;
    BoundaryLineFile::Failure failure;
    QString message; ///< of the fallback
};

TEST(BoundaryLineFile, RefusesBadCountsAndPointsWithTheirMessage)
{
    using F = BoundaryLineFile::Failure;
    const QString fallback = QStringLiteral(" Use CBEMA curve.");
    const FileCase cases[] = {
        {"no lines", QStringLiteral("lines=0\n") + line(1), F::LineCount, {}},
        {"four lines",
         QStringLiteral("lines=4\n") + line(1) + line(2) + line(3) + line(4),
         F::LineCount,
         {}},
        {"three lines", QStringLiteral("lines=3\n") + line(1) + line(2) + line(3), F::None, {}},
        {"a point without /", QStringLiteral("lines=2\n") + line(1) + line(2, QStringLiteral("5")),
         F::Point, QStringLiteral("Cannot read line 2, set 1, point 1.") + fallback},
        {"/5", QStringLiteral("lines=1\n") + line(1, QStringLiteral("/5")), F::Point,
         QStringLiteral("Cannot read line 1, set 1, point 1.") + fallback},
        {"a missing point",
         QStringLiteral("lines=1\nl1_set1_points=1\nl1_set2_points=3\nl1_set1_xy1=1/1\n"
                        "l1_set2_xy1=1/1\nl1_set2_xy2=2/2\n"),
         F::Point, QStringLiteral("Cannot read line 1, set 2, point 3.") + fallback},
    };
    const QTemporaryDir dir;
    for (const FileCase& c : cases) {
        const QString path = writeFile(dir, "case.ini", c.body);
        const BoundaryLineFile::Result read = BoundaryLineFile::ReadBoundaryLines(path);
        EXPECT_EQ(read.failure, c.failure) << c.name;
        PqGraphSession session;
        const QString message = session.chooseEnvelope(false, path);
        EXPECT_EQ(session.envelope().builtIn, c.failure != F::None) << c.name;
        if (!c.message.isEmpty()) {
            EXPECT_EQ(message, c.message) << c.name;
        }
        EXPECT_EQ(message.isEmpty(), c.failure == F::None) << c.name;
        // The setting to keep the old curve reads no file and says nothing.
        EXPECT_TRUE(session.chooseEnvelope(true, path).isEmpty()) << c.name;
        EXPECT_TRUE(session.envelope().builtIn) << c.name;
    }
    PqGraphSession session;
    EXPECT_TRUE(
        session.chooseEnvelope(false, dir.filePath(QStringLiteral("missing.ini")))
            .endsWith(QStringLiteral("gives 0 lines; it must give 1 to 3. Use CBEMA curve.")));
}

TEST(BoundaryLineFile, ReadsPointsNamesAndKeysInTheirRanges)
{
    const QTemporaryDir dir;
    const QString path = writeFile(
        dir, "lines.ini",
        QStringLiteral("lines=2\n"
                       "l1_name=Upper\nl1_genmethod=7\nl1_color=12\nl1_type=3\n"
                       "l1_set1_points=3\nl1_set2_points=1\n"
                       "l1_set1_xy1=0.001/200\nl1_set1_xy2=5/\nl1_set1_xy3= 2.5e-1 / 110 \n"
                       "l1_set2_xy1=1/80\n"
                       "l2_color=16\nl2_type=7\nl2_genmethod=40000\n") +
            QStringLiteral("l2_set1_points=1\nl2_set2_points=0\nl2_set1_xy1=0.5/70\n"));
    const BoundaryLineFile::Result read = BoundaryLineFile::ReadBoundaryLines(path);
    ASSERT_TRUE(read.ok());
    ASSERT_EQ(read.lines.size(), 2);
    const BoundaryLineFile::Line& upper = read.lines[0];
    EXPECT_EQ(upper.name, QStringLiteral("Upper"));
    EXPECT_EQ(upper.genMethod, 7);
    EXPECT_EQ(upper.color, 12);
    EXPECT_EQ(upper.type, 41);
    const QList<QPointF> set1{{0.001, 200}, {5, 0}, {0.25, 110}};
    EXPECT_EQ(upper.sets[0], set1);
    EXPECT_EQ(upper.sets[1], QList<QPointF>{QPointF(1, 80)});
    // Out of range: colour, type and method fall back on 0; no name gives the placeholder.
    const BoundaryLineFile::Line& second = read.lines[1];
    EXPECT_EQ(second.name, QStringLiteral("[Line 2 Name]"));
    EXPECT_EQ(second.color, 0);
    EXPECT_EQ(second.type, 38);
    EXPECT_EQ(second.genMethod, 0);
    // Each non-empty set is one polyline of the envelope.
    EXPECT_EQ(read.envelope().polylines.size(), 3);
}

} // namespace
