// SPDX-License-Identifier: GPL-3.0-or-later
#include "MeterProfile.h"

#include "SimDataPoints.h"

namespace lorvane::sim {

MeterProfile::MeterProfile(MeterKind kind) : m_kind(kind)
{
}

std::optional<MeterKind> MeterProfile::parse(const QString& word)
{
    static const QList<std::pair<QString, MeterKind>> words{
        {QStringLiteral("standard"), MeterKind::Standard},
        {QStringLiteral("talmo"), MeterKind::Talmo},
        {QStringLiteral("recorder"), MeterKind::Recorder},
        {QStringLiteral("basic"), MeterKind::Basic},
        {QStringLiteral("split"), MeterKind::Split}};
    for (const auto& [name, kind] : words) {
        if (name == word)
            return kind;
    }
    return std::nullopt;
}

int MeterProfile::deviceTypeId() const
{
    switch (m_kind) {
    case MeterKind::Standard:
        return 3;
    case MeterKind::Talmo:
        return 0;
    case MeterKind::Recorder:
        return 4;
    case MeterKind::Basic:
        return 6;
    case MeterKind::Split:
        return 5;
    }
    return 3;
}

QString MeterProfile::deviceTypeName() const
{
    switch (m_kind) {
    case MeterKind::Standard:
        return QStringLiteral("Halyx 3");
    case MeterKind::Talmo:
        return QStringLiteral("Talmo");
    case MeterKind::Recorder:
        return QStringLiteral("Halyx 4 Recorder");
    case MeterKind::Basic:
        return QStringLiteral("Halyx 6 Basic");
    case MeterKind::Split:
        return QStringLiteral("Halyx 15");
    }
    return {};
}

QList<SimLog> MeterProfile::logs() const
{
    if (m_kind == MeterKind::Basic)
        return {SimLog::Interval1, SimLog::SystemEvent};
    QList<SimLog> logs{SimLog::Interval1, SimLog::Interval2,   SimLog::Limits,
                       SimLog::Inputs,    SimLog::Relays,      SimLog::Flicker,
                       SimLog::Waveform,  SimLog::SystemEvent, SimLog::PowerQuality};
    if (compliance())
        logs << SimLog::EN50160;
    logs << SimLog::Transient;
    return logs;
}

QList<qint32> MeterProfile::billingIds() const
{
    switch (m_kind) {
    case MeterKind::Talmo:
        return {20825, 20826};
    case MeterKind::Recorder:
        return {202006, 202010};
    case MeterKind::Standard:
    case MeterKind::Split:
    case MeterKind::Basic:
        return {26003, 26004, 26005, 26006};
    }
    return {};
}

QList<qint32> MeterProfile::demandPoints() const
{
    return billingIds() + SimDataPoints::demandIds();
}

bool MeterProfile::compliance() const
{
    return m_kind == MeterKind::Standard || m_kind == MeterKind::Split;
}

int MeterProfile::kGate() const
{
    return m_kind == MeterKind::Standard || m_kind == MeterKind::Split ? 1 : 0;
}

double MeterProfile::nominalVoltage() const
{
    return m_kind == MeterKind::Talmo || m_kind == MeterKind::Split ? 230.0 : 120.0;
}

double MeterProfile::nominalFrequency() const
{
    return m_kind == MeterKind::Talmo || m_kind == MeterKind::Split ? 50.0 : 60.0;
}

} // namespace lorvane::sim
