// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicGrid.h"

#include "RelayLogicTexts.h"
#include "platform/UserText.h"

namespace lorvane {

GridTable RelayLogicGrid::table(const RelayLogicTree& tree)
{
    using Kind = RelayLogicNode::Kind;
    GridTable grid;
    grid.caption = RelayLogicTexts::title(tree.deviceTypeId);
    grid.columns =
        QStringList{userText("901030", "Index"),         userText("901031", "Name"),
                    userText("901032", "Hysteresis"),    userText("901033", "Logic Type"),
                    userText("901034", "Logic Control"), userText("901035", "Status")};
    const QString hysteresis = QString::number(tree.hysteresis);
    const QString control = QString::number(tree.logicControl);
    for (int i = 0; i < tree.nodes.size(); ++i) {
        const RelayLogicNode& node = tree.nodes.at(i);
        if (node.kind == Kind::Input) {
            QString type;
            for (const RelayLogicEdge& e : tree.edges)
                if (e.from == i && tree.nodes.at(e.to).kind == Kind::Gate)
                    type = RelayLogicTexts::gateType(tree.nodes.at(e.to).gate);
            grid.rows << QStringList{QString::number(node.number),
                                     RelayLogicTexts::label(node),
                                     hysteresis,
                                     type,
                                     control,
                                     RelayLogicTexts::status(node.state)};
        }
    }
    for (int number : {1, 2}) {
        const int at = tree.find(Kind::Delay, number);
        if (at >= 0)
            grid.rows << QStringList{
                QString(), RelayLogicTexts::delay(number, tree.nodes.at(at).seconds),
                QString(), QString(),
                QString(), RelayLogicTexts::status(tree.nodes.at(at).state)};
    }
    for (int r = 0; r < grid.rows.size(); ++r) {
        grid.rowKeys << QVariantMap{};
        grid.rowPictures << QString();
    }
    return grid;
}

} // namespace lorvane
