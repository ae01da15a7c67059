// SPDX-License-Identifier: GPL-3.0-or-later
// lorvane-cli graphs: every graph of the registry with its log kind and the view that loads its
// rows, as text and as JSON, and a refused option.
#include "graph/GraphRegistry.h"
#include "query/engine/ViewRegistry.h"
#include "support/TestEnvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace lorvane;
using lorvane::test::runProgram;

TEST(CliGraphs, ListsEveryGraphWithItsKindAndRowsView)
{
    const auto text = runProgram(QStringLiteral("lorvane-cli"), {QStringLiteral("graphs")});
    ASSERT_EQ(text.exitCode, 0) << text.err.toStdString();
    const auto json = runProgram(QStringLiteral("lorvane-cli"),
                                 {QStringLiteral("graphs"), QStringLiteral("--json")});
    ASSERT_EQ(json.exitCode, 0) << json.err.toStdString();
    const QJsonArray listed = QJsonDocument::fromJson(json.out.toUtf8())
                                  .object()
                                  .value(QStringLiteral("graphs"))
                                  .toArray();
    const QList<GraphDefinition>& graphs = GraphRegistry::instance().graphs();
    ASSERT_EQ(listed.size(), graphs.size());
    const QStringList lines = text.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), graphs.size());
    for (qsizetype i = 0; i < graphs.size(); ++i) {
        const QJsonObject one = listed.at(i).toObject();
        const ViewDefinition* view = GraphRegistry::rowsView(graphs[i]);
        ASSERT_NE(view, nullptr) << "every graph draws rows some view loads";
        EXPECT_EQ(int(view->logKind), graphs[i].logKind);
        EXPECT_EQ(one.value(QStringLiteral("name")).toString(), graphs[i].name);
        EXPECT_TRUE(one.value(QStringLiteral("logKind")).isDouble()) << "a number, not a text";
        EXPECT_EQ(one.value(QStringLiteral("logKind")).toInt(), graphs[i].logKind);
        EXPECT_EQ(one.value(QStringLiteral("view")).toString(), view->name);
        EXPECT_EQ(lines[i].split(u'\t').mid(0, 3),
                  QStringList({graphs[i].name, QString::number(graphs[i].logKind), view->name}));
    }
    const auto bad = runProgram(QStringLiteral("lorvane-cli"),
                                {QStringLiteral("graphs"), QStringLiteral("--csv")});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_TRUE(bad.err.contains(QStringLiteral("unknown option: --csv")));
}
