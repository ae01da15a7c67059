// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <functional>

namespace lorvane {

/// The vocabulary of a meter's system events and of its input and relay set-up: constant
/// lists of texts, each entry with its id in the string catalogue, so that a translation
/// covers the words a meter's events are told in. The lists are English when made and are
/// filled through the catalogue once at start; a change of language needs a restart.
class SystemEventTexts
{
public:
    /// The lists, in the order of their ids.
    enum class List
    {
        EventClasses,
        RunTimeStates,
        ResetCauses,
        PasswordEvents,
        FirmwareChanges,
        TimeChanges,
        TestModeEndAndPreset,
        TestModeQualifiers,
        TestModes,
        LogDownloads,
        LogNames,
        ResetEvents,
        Ports,
        PortTypes,
        RelayStates,
        LogicOperators,
        EnableStates,
        Polarity,
    };
    static constexpr int listCount = static_cast<int>(List::Polarity) + 1;

    /// Every list in English.
    SystemEventTexts();

    /// Replaces every entry by its text from the process-wide string catalogue.
    void fill();

    /// One list, position 0 first.
    const QStringList& list(List which) const { return m_lists[static_cast<int>(which)]; }
    /// The entry at `position` of a list; empty when the position is outside the list.
    QString entry(List which, int position) const;

    /// Text of a gate type 0 to 7: "AND", "OR", "XOR", "Hysteresis", then the same with a
    /// leading "N"; empty for any other number.
    QString logicOperator(int gateType) const { return entry(List::LogicOperators, gateType); }
    /// 0 "Enabled", 1 "Disabled"; empty for any other number.
    QString enableState(int position) const { return entry(List::EnableStates, position); }
    /// 0 "Negative (-)", 1 "Positive (+)"; empty for any other number.
    QString polarity(int position) const { return entry(List::Polarity, position); }
    /// Heading of the port type list, "Port Type".
    const QString& portTypeHeading() const { return m_portTypeHeading; }
    /// The relay state shown for a value outside the relay state list, "Undefined".
    const QString& undefinedRelayState() const { return m_undefinedRelayState; }

private:
    using Translate = std::function<QString(const char* id, const char* english)>;
    void build(const Translate& translate);

    std::array<QStringList, listCount> m_lists;
    QString m_portTypeHeading;
    QString m_undefinedRelayState;
};

} // namespace lorvane
