// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphTexts.h"

#include "WaveformChannels.h"
#include "platform/UserText.h"

#include <cmath>

namespace lorvane {

QString WaveGraphTexts::axisTitle(int channel, int systemFrequency)
{
    QString title;
    if (channel < WaveformChannels::Ia)
        title = userText("503110", "Volts");
    else if (channel < WaveformChannels::Input1)
        title = userText("503111", "Current");
    else
        return userText("503112", "Inputs");
    if (systemFrequency == 50) {
        title += QStringLiteral(" (") + userText("503113", "Displaying for") + u' ' +
                 QString::number(systemFrequency) + u' ' + userText("503114", "Hz system") + u')';
    }
    return title;
}

QString WaveGraphTexts::timeTitle()
{
    return userText("503115", "Milliseconds");
}

QString WaveGraphTexts::triggerText(const WaveformRecord& record)
{
    if (record.triggeredBy.contains(QLatin1String("time mark"), Qt::CaseInsensitive))
        return QStringLiteral("|h") + userText("503117", "Time Mark");
    return QStringLiteral("|h") + userText("503116", "Trigger");
}

QString WaveGraphTexts::pqStartText()
{
    return QStringLiteral("|HPQ-S");
}

QString WaveGraphTexts::pqEndText()
{
    return QStringLiteral("|HPQ-E");
}

QString WaveGraphTexts::interharmonicStartText()
{
    return QStringLiteral("|HIH-S");
}

QString WaveGraphTexts::transientText(bool positive, double peak, int count)
{
    const double nanoseconds = count * 18.18;
    return (positive ? QStringLiteral("|t") + userText("503118", "Positive ")
                     : QStringLiteral("|b") + userText("503119", "Negative ")) +
           QString::number(peak, 'f', 2) + QStringLiteral(", ") + userText("503120", "Duration: ") +
           QString::number(nanoseconds, 'f', 0) + userText("503121", " nanoseconds");
}

QString WaveGraphTexts::pointHoverText(double timeMs, double offsetFromTriggerMs)
{
    return u'@' + QString::number(timeMs, 'f', 2) + u' ' + userText("503100", "Duration") +
           QStringLiteral(" = ") + QString::number(offsetFromTriggerMs, 'f', 3) +
           QStringLiteral(" ms");
}

QString WaveGraphTexts::harmonicHoverText(int harmonic, double percent)
{
    return QStringLiteral(", ") + userText("503122", "Harmonic") + u' ' +
           QString::number(harmonic) + u' ' + QString::number(percent, 'f', 2) + u'%';
}

QString WaveGraphTexts::overlayName(int channel, const QString& label)
{
    if (channel >= WaveformChannels::Input1)
        return label;
    if (channel == WaveformChannels::In)
        return QStringLiteral("I N");
    const QString word = label.section(u' ', 0, 0).section(u'-', 0, 0);
    const QString prefix =
        channel < WaveformChannels::Ia ? QStringLiteral("V ") : QStringLiteral("I ");
    if (word.compare(QLatin1String("Vaux"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("V Aux");
    return prefix + word.mid(1);
}

} // namespace lorvane
