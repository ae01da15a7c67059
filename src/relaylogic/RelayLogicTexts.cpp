// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicTexts.h"

#include "RelayMeterKind.h"
#include "platform/UserText.h"
#include "query/engine/GridCellText.h"
#include "store/SystemEventTexts.h"

#include <QLocale>

namespace lorvane {

namespace {

QString stampText(const StampedTime& stamp)
{
    if (!stamp.isValid())
        return QString();
    return GridCellText::stamp(stamp.storedText(), stamp.ms());
}

const SystemEventTexts& vocabulary()
{
    static const SystemEventTexts texts = [] {
        SystemEventTexts t;
        t.fill();
        return t;
    }();
    return texts;
}

} // namespace

QString RelayLogicTexts::title(int deviceTypeId)
{
    return RelayMeterKind::newerForm(deviceTypeId) ? userText("901010", "Zelmo Logic Relay Control")
                                                   : userText("901011", "Talmo Relay Logic Tree");
}

QString RelayLogicTexts::label(const RelayLogicNode& node)
{
    using Kind = RelayLogicNode::Kind;
    switch (node.kind) {
    case Kind::Input:
        return node.statusAvailable
                   ? node.name
                   : node.name + QStringLiteral(" (") +
                         userText("901012", "input status unavailable") + QStringLiteral(")");
    case Kind::Gate:
        return QString(QChar(u'A' + (node.number - 1)));
    case Kind::SetPath:
        return QStringLiteral("S") + QString::number(node.number);
    case Kind::Delay:
        return node.number == 1 ? userText("901013", "Set Delay")
                                : userText("901014", "Reset Delay");
    case Kind::Relay:
        return userText("901015", "Relay");
    }
    return QString();
}

QString RelayLogicTexts::gateType(const RelayGateByte& gate)
{
    return vocabulary().logicOperator(gate.type);
}

QString RelayLogicTexts::stateMark(RelayNodeState state)
{
    return state == RelayNodeState::Unknown ? QStringLiteral("?") : QString::number(int(state));
}

QString RelayLogicTexts::status(RelayNodeState state)
{
    return state == RelayNodeState::Unknown ? userText("901016", "N/A")
                                            : QString::number(int(state));
}

QString RelayLogicTexts::delay(int number, double seconds)
{
    const QString name =
        number == 1 ? userText("901013", "Set Delay") : userText("901017", "ReSet Delay");
    return name + QStringLiteral("=") + QLocale::c().toString(seconds, 'f', 1) +
           QStringLiteral(" ") + userText("901018", "Sec") + QStringLiteral(".");
}

QString RelayLogicTexts::startHeading(const RelayLogicTree& tree)
{
    return userText("901019", "Limit Status at Trigger (Start)") + QStringLiteral(": ") +
           stampText(tree.start);
}

QString RelayLogicTexts::endHeading(const RelayLogicTree& tree)
{
    return userText("901020", "Control Path to Relay Trip (End)") + QStringLiteral(": ") +
           stampText(tree.end);
}

QString RelayLogicTexts::finalState(const RelayLogicTree& tree)
{
    if (tree.openedAndLocked)
        return userText("901021", "Opened and Locked");
    const QString word = vocabulary().entry(SystemEventTexts::List::RelayStates, tree.endCondition);
    return word.isEmpty() ? vocabulary().undefinedRelayState() : word;
}

QString RelayLogicTexts::firstRecord()
{
    return userText("901022", "This is the first record");
}

QString RelayLogicTexts::lastRecord()
{
    return userText("901023", "This is the last record");
}

QString RelayLogicTexts::cannotPrintKind()
{
    return userText("901024", "Invalid device type, cannot print") + QStringLiteral(".");
}

QString RelayLogicTexts::cannotPrintGrid()
{
    return userText("901025",
                    "Cannot print grid. Please copy data from grid and past into other programs") +
           QStringLiteral(".");
}

} // namespace lorvane
