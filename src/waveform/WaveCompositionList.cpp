// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveCompositionList.h"

#include "platform/UserText.h"

namespace lorvane {

namespace {

QString ms(double value)
{
    return QString::number(value, 'f', 2);
}

} // namespace

QString WaveCompositionList::add(const WaveCompositionItem* item, bool useSelectedWindow,
                                 double start, double end)
{
    if (!item)
        return userText("503140", "Please select an item") + u'.';
    if (m_items.size() >= maximumItems) {
        return userText("503141",
                        "There are no available channels left for graph. Max channels are 6") +
               u'.';
    }
    WaveCompositionItem added = *item;
    added.section = useSelectedWindow;
    if (useSelectedWindow) {
        added.start = start;
        added.end = start < 0 ? -1 : end;
        if (added.start >= 0)
            added.durationMs = added.end - added.start;
    } else {
        added.start = -1;
        added.end = -1;
    }
    m_items.append(added);
    return QString();
}

bool WaveCompositionList::remove(int row)
{
    if (row < 0 || row >= m_items.size())
        return false;
    m_items.removeAt(row);
    return true;
}

QString WaveCompositionList::graphMessage() const
{
    return m_items.isEmpty() ? userText("503142", "Nothing to graph") + u'.' : QString();
}

QStringList WaveCompositionList::columnTitles()
{
    return {userText("503143", "Input"),      userText("503144", "Group Index"),
            userText("503145", "Item Index"), userText("503146", "Date/Time"),
            userText("503147", "Device"),     userText("503148", "Item"),
            userText("503149", "Type"),       userText("503150", "Duration(ms)")};
}

QStringList WaveCompositionList::cells(const WaveCompositionItem& item)
{
    return {QString::number(item.input),
            QString::number(item.groupIndex),
            QString::number(item.itemIndex),
            item.dateTime.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
            item.device,
            item.item,
            item.section ? userText("503151", "Section") : userText("503152", "Complete"),
            ms(item.durationMs)};
}

QString WaveCompositionList::description(const WaveCompositionItem& item)
{
    if (!item.section) {
        return item.dateTime.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
               QStringLiteral(", ") + item.item;
    }
    return userText("503153", "From") + u' ' + ms(item.start) + u' ' + userText("503154", "ms to") +
           u' ' + ms(item.end) + u' ' + userText("503155", "ms, duration") + QStringLiteral(" = ") +
           ms(item.durationMs) + u' ' + userText("503156", "ms") + u'.';
}

QString WaveCompositionList::legend(const WaveCompositionItem& item)
{
    // A fraction past a whole second moves the clock on rather than showing 1000 ms or more.
    const int wholeSeconds = static_cast<int>(item.ms / 1000);
    const QDateTime time = item.dateTime.addSecs(wholeSeconds);
    const double fraction = item.ms - wholeSeconds * 1000.0;
    return time.toString(QStringLiteral("HH:mm:ss")) + u'.' +
           QStringLiteral("%1").arg(qRound(fraction * 10), 4, 10, QLatin1Char('0')) + u' ' +
           item.item;
}

QVector<float> WaveCompositionList::timeAxis(int frequency, int sampleRate, int count)
{
    QVector<float> axis(qMax(0, count));
    if (sampleRate < 1 || frequency < 1)
        return axis;
    // The values are rounded for display; the step that multiplies is not.
    const double step = 1.0 / frequency / sampleRate * 1000.0;
    for (int i = 0; i < axis.size(); ++i)
        axis[i] = QString::number(i * step, 'f', 3).toFloat();
    return axis;
}

} // namespace lorvane
