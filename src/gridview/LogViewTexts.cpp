// SPDX-License-Identifier: GPL-3.0-or-later
#include "LogViewTexts.h"

#include "platform/UserText.h"
#include "query/views/snapshot/SnapshotView.h"

namespace lorvane {

QStringList LogViewTexts::captions(LogKind kind)
{
    switch (kind) {
    case LogKind::DatabaseStatus:
        return {userText("406030", "Data File Information")};
    case LogKind::Snapshots:
    case LogKind::Demand:
        return {SnapshotView::caption(kind)};
    case LogKind::Limits:
        return {userText("406031", "Show Limits")};
    case LogKind::Inputs:
        return {userText("406032", "Show Inputs"), userText("406033", "Show Input Settings")};
    case LogKind::Relays:
        return {userText("406034", "Show Relays"), userText("406035", "Show Relay Settings")};
    case LogKind::Flicker:
        return {userText("406036", "Show Flicker Max/Min")};
    case LogKind::Waveform:
        return {userText("406037", "Show Waveforms"), userText("406038", "Show Waveform Settings")};
    case LogKind::PowerQuality:
        return {userText("406039", "Show PQs"), userText("406040", "Show PQ/Waveform Settings")};
    case LogKind::SystemEvent:
        return {userText("406041", "Show System Events")};
    case LogKind::EN50160:
        return {userText("406042", "EN50160 / IEC 61000-4-30 Information")};
    case LogKind::DeviceInformation:
    case LogKind::AllLogs:
    case LogKind::Billing:
    case LogKind::Compliance:
        break;
    }
    return {};
}

QString LogViewTexts::viewName(LogKind kind)
{
    switch (kind) {
    case LogKind::DatabaseStatus:
        return userText("406050", "Database Status");
    case LogKind::Snapshots:
        return userText("406051", "Snapshots");
    case LogKind::Demand:
        return userText("406052", "Demands");
    case LogKind::Limits:
        return userText("406053", "Limits");
    case LogKind::Inputs:
        return userText("406054", "Status Change (Inputs)");
    case LogKind::Relays:
        return userText("406055", "Control Output (Relays)");
    case LogKind::Flicker:
        return userText("406056", "Flicker");
    case LogKind::Waveform:
        return userText("406057", "Waveform");
    case LogKind::PowerQuality:
        return userText("406058", "Power Quality");
    case LogKind::SystemEvent:
        return userText("406059", "System Event");
    case LogKind::EN50160:
        return userText("406060", "EN50160 / IEC 61000-4-30 Report");
    case LogKind::DeviceInformation:
    case LogKind::AllLogs:
    case LogKind::Billing:
    case LogKind::Compliance:
        break;
    }
    return {};
}

QString LogViewTexts::windowTitle(const QString& program, LogKind kind)
{
    return program + QStringLiteral(" - [") + viewName(kind) + QLatin1Char(']');
}

QString LogViewTexts::helpTopic(LogKind kind)
{
    switch (kind) {
    case LogKind::DatabaseStatus:
        return QStringLiteral("LRDBStatus");
    case LogKind::Snapshots:
    case LogKind::Demand:
        return QStringLiteral("LRHistTrends");
    case LogKind::Limits:
        return QStringLiteral("LRLimits");
    case LogKind::Inputs:
        return QStringLiteral("LRStatChange");
    case LogKind::Relays:
        return QStringLiteral("LRControl");
    case LogKind::Flicker:
        return QStringLiteral("LRFlicker");
    case LogKind::Waveform:
        return QStringLiteral("LRWaveformLog");
    case LogKind::PowerQuality:
        return QStringLiteral("LRpqLogs");
    case LogKind::SystemEvent:
        return QStringLiteral("LRSystemEvtLog");
    case LogKind::EN50160:
        return QStringLiteral("LREN50160Log");
    case LogKind::DeviceInformation:
    case LogKind::AllLogs:
    case LogKind::Billing:
    case LogKind::Compliance:
        break;
    }
    return {};
}

} // namespace lorvane
