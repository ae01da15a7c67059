// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphSession.h"

#include "PGraphTimeText.h"
#include "platform/Fault.h"
#include "platform/UserText.h"

#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

std::optional<double> number(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

QString notANumber(const QString& field, const QString& text)
{
    return field + QStringLiteral(": \"") + text.trimmed() + QStringLiteral("\" ") +
           userText("801002", "is not a number.");
}

} // namespace

PGraphSession::PGraphSession(QList<PGraphItem> items, PGraphView view)
    : m_items(std::move(items)), m_view(std::move(view))
{
    if (m_items.size() > maxItems)
        throw Fault(Fault::Kind::Other,
                    userText("802004", "Maximum 6 items. Too many items selected."),
                    QStringLiteral("PGraph"), {});
    for (const PGraphItem& item : m_items)
        for (const PGraphRecord& record : item.records)
            m_times << record.time;
    std::sort(m_times.begin(), m_times.end());
    m_times.erase(std::unique(m_times.begin(), m_times.end()), m_times.end());
    if (!m_times.isEmpty())
        m_view.start = m_times.first() - m_times.first() % PGraphView::msPerDay;
}

std::optional<QString> PGraphSession::checkNumDays(double days)
{
    if (!(days > 0))
        return userText("801003", "Number of days to view cannot be 0 or less");
    if (days > PGraphView::maxDaysView)
        return userText("801004", "Number of days to view cannot be > 24855");
    return std::nullopt;
}

std::optional<QString> PGraphSession::apply(const Entries& entries)
{
    const std::optional<double> days = number(entries.numDaysView);
    if (const std::optional<QString> refused = checkNumDays(days.value_or(0)))
        return refused;
    const std::optional<double> maxY = number(entries.maxY);
    if (!maxY)
        return notANumber(userText("801005", "Maximum Value"), entries.maxY);
    const std::optional<double> minY = number(entries.minY);
    if (!minY)
        return notANumber(userText("801006", "Minimum Value"), entries.minY);
    const std::optional<qint64> start = PGraphTimeText::parseEntry(entries.start);
    if (!start)
        return userText("801007", "Starting Date/Time to View") + QStringLiteral(": \"") +
               entries.start.trimmed() + QStringLiteral("\" ") +
               userText("801008", "is not a date and time (mm/dd/yyyy hh:mm:ss).");
    m_view.numDaysView = *days;
    m_view.maxY = *maxY;
    m_view.minY = *minY;
    m_view.start = *start;
    return std::nullopt;
}

PGraphSession::Entries PGraphSession::entries() const
{
    return {QString::number(m_view.maxY), QString::number(m_view.minY),
            QString::number(m_view.numDaysView), PGraphTimeText::entry(m_view.start)};
}

qint64 PGraphSession::totalRecords() const
{
    qint64 total = 0;
    for (const PGraphItem& item : m_items)
        total += item.records.size();
    return total;
}

qint64 PGraphSession::recordsInView() const
{
    qint64 total = 0;
    for (int i = 0; i < m_items.size(); ++i)
        total += visible(i).size();
    return total;
}

QList<PGraphRecord> PGraphSession::visible(int item) const
{
    if (item < 0 || item >= m_items.size())
        return {};
    const QList<PGraphRecord>& records = m_items.at(item).records;
    auto before = [](const PGraphRecord& r, qint64 t) { return r.time < t; };
    auto after = [](qint64 t, const PGraphRecord& r) { return t < r.time; };
    const auto from = std::lower_bound(records.cbegin(), records.cend(), m_view.start, before);
    const auto to = std::upper_bound(from, records.cend(), m_view.end(), after);
    return QList<PGraphRecord>(from, to);
}

bool PGraphSession::step(Direction direction)
{
    if (m_times.isEmpty())
        return false;
    const bool forward = direction == Direction::Forward;
    qint64 start = 0;
    if (m_view.moveBySample) {
        if (forward) {
            const auto next = std::upper_bound(m_times.cbegin(), m_times.cend(), m_view.start);
            if (next == m_times.cend())
                return false;
            start = *next;
        } else {
            const auto at = std::lower_bound(m_times.cbegin(), m_times.cend(), m_view.start);
            if (at == m_times.cbegin())
                return false;
            start = *(at - 1);
        }
    } else {
        start = m_view.start + (forward ? m_view.spanMs() : -m_view.spanMs());
        // A view that would hold no record is not stepped to: the records lie behind it.
        if (start > m_times.last() || start + m_view.spanMs() <= m_times.first())
            return false;
    }
    m_view.start = start;
    return true;
}

} // namespace lorvane
