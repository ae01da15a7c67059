// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicBuilder.h"

#include "RelayInputBits.h"
#include "RelayLogicLayout.h"
#include "RelayMeterKind.h"
#include "platform/Fault.h"
#include "platform/UserText.h"

#include <optional>

namespace lorvane {

namespace {

using Kind = RelayLogicNode::Kind;

constexpr int gatePlaces = 8; ///< logic inputs the gate tree takes
constexpr int gateCount = 7;  ///< gates A to G
constexpr int lockedCondition = 2;

QString text(const QVariantMap& row, const QString& column)
{
    return row.value(column).toString().trimmed();
}

/// Joins the states of what feeds a set path or the set delay: set when any is set, unknown
/// when none is set but one is unknown.
RelayNodeState anyActive(const QList<RelayNodeState>& states)
{
    RelayNodeState out = RelayNodeState::Inactive;
    for (RelayNodeState s : states) {
        if (s == RelayNodeState::Active)
            return s;
        if (s == RelayNodeState::Unknown)
            out = s;
    }
    return out;
}

/// The status byte of each gate: the stored block as bytes, or a whole number whose lowest
/// byte is gate A's. Empty for a null block.
std::optional<QByteArray> gateBytes(const QVariant& stored)
{
    if (!stored.isValid() || stored.isNull())
        return std::nullopt;
    if (stored.typeId() == QMetaType::QByteArray)
        return stored.toByteArray().left(gatePlaces);
    const quint64 value = stored.toULongLong();
    QByteArray bytes;
    for (int i = 0; i < gatePlaces; ++i)
        bytes.append(char((value >> (8 * i)) & 0xff));
    return bytes;
}

class TreeMaker
{
public:
    TreeMaker(RelayLogicTree& tree, const QVariantMap& setting, const QVariantMap& record)
        : m_tree(tree), m_setting(setting), m_record(record),
          m_gateBytes(gateBytes(record.value(QStringLiteral("GateStatus"))))
    {
    }

    void inputs(int count)
    {
        for (int n = 1; n <= count; ++n) {
            const QString name = text(m_setting, QStringLiteral("LogicStr%1").arg(n));
            if (name.isEmpty())
                continue;
            RelayLogicNode node;
            node.kind = Kind::Input;
            node.number = n;
            node.name = name;
            node.state = RelayInputBits::state(n, m_record.value(QStringLiteral("InputStatus")),
                                               m_record.value(QStringLiteral("InputStatusB")));
            node.statusAvailable = node.state != RelayNodeState::Unknown;
            m_tree.nodes << node;
        }
    }

    /// The signal out of gate `gate` (1 to 7) after leaving out gates with one signal, or -1
    /// when nothing named lies under it.
    int gateSignal(int gate)
    {
        const auto [first, second] =
            gate <= 4 ? std::pair{m_tree.find(Kind::Input, 2 * gate - 1),
                                  m_tree.find(Kind::Input, 2 * gate)}
                      : std::pair{gateSignal(2 * (gate - 5) + 1), gateSignal(2 * (gate - 5) + 2)};
        if (first < 0 || second < 0)
            return first < 0 ? second : first;
        RelayLogicNode node;
        node.kind = Kind::Gate;
        node.number = gate;
        node.gate = RelayGateByte::decode(
            m_setting.value(QStringLiteral("LogicComb%1").arg(gate)).toLongLong());
        if (m_gateBytes && gate <= m_gateBytes->size())
            node.state =
                m_gateBytes->at(gate - 1) != 0 ? RelayNodeState::Active : RelayNodeState::Inactive;
        return add(node, {first, second}, true);
    }

    /// Adds `node` fed by `sources` (on pins 0, 1 ... when `pins`); returns its index.
    int add(const RelayLogicNode& node, const QList<int>& sources, bool pins)
    {
        const int at = int(m_tree.nodes.size());
        m_tree.nodes << node;
        for (int i = 0; i < sources.size(); ++i)
            m_tree.edges << RelayLogicEdge{sources.at(i), at, pins ? i : -1};
        return at;
    }

    RelayNodeState state(int node) const { return m_tree.nodes.at(node).state; }

private:
    RelayLogicTree& m_tree;
    const QVariantMap& m_setting;
    const QVariantMap& m_record;
    std::optional<QByteArray> m_gateBytes;
};

RelayNodeState relayState(int condition)
{
    switch (condition) {
    case 0:
        return RelayNodeState::Inactive;
    case 1:
    case lockedCondition:
        return RelayNodeState::Active;
    default:
        return RelayNodeState::Unknown;
    }
}

int condition(const QVariantMap& row, const char* column)
{
    const QVariant v = row.value(QString::fromLatin1(column));
    return v.isNull() || !v.isValid() ? -1 : v.toInt();
}

StampedTime stamp(const QVariantMap& row, int i)
{
    const QString clock = text(row, QStringLiteral("DT%1").arg(i));
    if (clock.isEmpty())
        return {};
    return StampedTime::fromStoredText(clock, row.value(QStringLiteral("ms%1").arg(i)).toDouble(),
                                       row.value(QStringLiteral("DT%1mode").arg(i)).toInt());
}

} // namespace

QString RelayLogicBuilder::missingSetting()
{
    return userText("901003", "Cannot find relay setup information") + QStringLiteral(".");
}

RelayLogicTree RelayLogicBuilder::build(int deviceTypeId, const QVariantMap& setting,
                                        const QVariantMap& record)
{
    const QString step = QStringLiteral("ShowRelayLogic");
    if (!RelayMeterKind::accepted(deviceTypeId))
        throw Fault(Fault::Kind::Other, RelayMeterKind::refusal(deviceTypeId), step, QString());
    if (setting.isEmpty() || record.isEmpty())
        throw Fault(Fault::Kind::Other, missingSetting(), step, QString());

    RelayLogicTree tree;
    tree.deviceTypeId = deviceTypeId;
    tree.gIndex = record.value(QStringLiteral("GIndex")).toLongLong();
    tree.moduleName = text(setting, QStringLiteral("ModuleLabel"));
    tree.relayName = text(setting, QStringLiteral("RelayLabel"));
    tree.start = stamp(record, 1);
    tree.end = stamp(record, 3);
    tree.durationMs = record.value(QStringLiteral("Duration13")).toDouble();
    tree.hysteresis = setting.value(QStringLiteral("Hysteresis")).toLongLong();
    tree.logicControl = setting.value(QStringLiteral("LogicControl")).toLongLong();
    tree.startCondition = condition(record, "Condition0");
    tree.endCondition = condition(record, "Condition3");
    tree.openedAndLocked = tree.endCondition == lockedCondition;

    TreeMaker maker(tree, setting, record);
    maker.inputs(RelayMeterKind::inputCount(deviceTypeId));
    QList<int> setPaths;
    if (const int top = maker.gateSignal(gateCount); top >= 0) {
        RelayLogicNode path;
        path.kind = Kind::SetPath;
        path.number = 1;
        path.state = maker.state(top);
        setPaths << maker.add(path, {top}, false);
    }
    QList<int> beyond;
    QList<RelayNodeState> beyondStates;
    for (int i = 0; i < tree.nodes.size(); ++i) {
        if (tree.nodes.at(i).kind == Kind::Input && tree.nodes.at(i).number > gatePlaces) {
            beyond << i;
            beyondStates << tree.nodes.at(i).state;
        }
    }
    if (!beyond.isEmpty()) {
        RelayLogicNode path;
        path.kind = Kind::SetPath;
        path.number = 2;
        path.state = anyActive(beyondStates);
        setPaths << maker.add(path, beyond, false);
    }

    RelayLogicNode setDelay;
    setDelay.kind = Kind::Delay;
    setDelay.number = 1;
    setDelay.seconds = setting.value(QStringLiteral("SetDelay")).toDouble();
    QList<RelayNodeState> pathStates;
    for (int p : setPaths)
        pathStates << maker.state(p);
    setDelay.state = anyActive(pathStates);
    const int set = maker.add(setDelay, setPaths, false);

    RelayLogicNode resetDelay;
    resetDelay.kind = Kind::Delay;
    resetDelay.number = 2;
    resetDelay.seconds = setting.value(QStringLiteral("ResetDelay")).toDouble();
    resetDelay.state = setDelay.state == RelayNodeState::Unknown  ? RelayNodeState::Unknown
                       : setDelay.state == RelayNodeState::Active ? RelayNodeState::Inactive
                                                                  : RelayNodeState::Active;
    const int reset = maker.add(resetDelay, {}, false);

    RelayLogicNode relay;
    relay.kind = Kind::Relay;
    relay.name = tree.relayName;
    relay.state = relayState(tree.endCondition);
    maker.add(relay, {set, reset}, false);

    RelayLogicLayout::place(tree);
    return tree;
}

} // namespace lorvane
