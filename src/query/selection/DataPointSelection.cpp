// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataPointSelection.h"

#include "DefaultSelection.h"
#include "TopQueryBuffer.h"
#include "platform/UserText.h"
#include "store/DataPointLabel.h"
#include "store/MeterDatabase.h"

#include <algorithm>

namespace lorvane {

namespace {

bool inRange(qint32 id, qint32 first, qint32 last)
{
    return id >= first && id <= last;
}

/// Points only a technician may choose: service registers of the meter.
bool technicianOnly(qint32 id)
{
    return inRange(id, 20438, 20441) || inRange(id, 20638, 20641);
}

bool namedAtOnce(qint32 id)
{
    return id >= 50000 && id < 199999;
}

/// The user labels the meter's items carry, for ids of the user item ranges.
QString userLabel(qint32 id, const QList<QPair<qint64, QString>>& labels)
{
    if (!inRange(id, 26602, 26636) && !inRange(id, 26801, 26832))
        return {};
    const qint64 item = DataPointLabel::item(id);
    for (const auto& label : labels) {
        if (label.first == item)
            return label.second;
    }
    return {};
}

QString missingPointsText(const char* id, const char* what)
{
    return userText("301010", "Cannot find data points in data file") + QStringLiteral(".  ") +
           userText(id, what) + QLatin1Char('.');
}

bool byId(const DataPointRow& a, const DataPointRow& b)
{
    return a.id < b.id;
}

} // namespace

QList<qint32> DataPointSelection::usedIds() const
{
    QList<qint32> ids;
    for (qint32 id : m_ids) {
        if (id > 0)
            ids << id;
    }
    return ids;
}

void DataPointSelection::loadDefaults(const DefaultSelection& defaults, bool defaultsPresent)
{
    m_ids = defaults.dataIds;
    m_names.fill(QString());
    m_valid = defaultsPresent;
}

void DataPointSelection::setIds(const QList<qint32>& ids)
{
    m_ids.fill(0);
    m_names.fill(QString());
    const auto used = std::min<qsizetype>(ids.size(), rows);
    for (qsizetype row = 0; row < used; ++row)
        m_ids[static_cast<size_t>(row)] = ids[row];
    m_valid = true;
}

QList<DataPointRow>
DataPointSelection::available(const QList<LogFileEntry>& expandedFiles, SqliteDatabase& dictionary,
                              bool technician, const QList<QPair<qint64, QString>>& userItemLabels)
{
    QList<DataPointRow> rows;
    for (const LogFileEntry& file : expandedFiles) {
        if (!file.used)
            continue;
        try {
            MeterDatabase meter(file.dbPath);
            SqlStatement points =
                meter.db().prepare(QStringLiteral("SELECT DataID FROM DataPoints"));
            while (points.next()) {
                const auto id = static_cast<qint32>(points.integer(0));
                if (namedAtOnce(id))
                    rows.append({id, DataPointLabel::text(dictionary, id)});
                else if (technician || !technicianOnly(id))
                    rows.append({id, QString()});
            }
        } catch (const std::exception&) {
            // The selection check before a view reports a meter that does not open.
            continue;
        }
    }
    std::stable_sort(rows.begin(), rows.end(), byId);
    rows.erase(
        std::remove_if(rows.begin(), rows.end(), [](const DataPointRow& r) { return r.id < 1; }),
        rows.end());
    rows.erase(
        std::unique(rows.begin(), rows.end(),
                    [](const DataPointRow& a, const DataPointRow& b) { return a.id == b.id; }),
        rows.end());
    for (DataPointRow& row : rows) {
        if (row.id >= 50000 && row.id < 200000)
            continue;
        row.name = userLabel(row.id, userItemLabels);
        if (row.name.isEmpty())
            row.name = DataPointLabel::text(dictionary, row.id);
    }
    return rows;
}

int DataPointSelection::selectIds(const QList<qint32>& ids)
{
    int found = 0;
    for (qint32 id : ids) {
        const auto at = std::find_if(m_available.begin(), m_available.end(),
                                     [id](const DataPointRow& r) { return r.id == id; });
        if (at == m_available.end())
            continue;
        m_selected.append(*at);
        m_available.erase(at);
        ++found;
    }
    return found;
}

void DataPointSelection::openDialog(const QList<DataPointRow>& available)
{
    m_available = available;
    m_selected.clear();
    selectIds(usedIds());
}

bool DataPointSelection::fits(int count, int devices)
{
    // Each point takes one column per meter in the table of 128, and every further meter
    // takes a column of its own: 128 points for one meter, 63 for two.
    const int meters = std::max(devices, 1);
    return count * meters + meters - 1 <= rows;
}

QString DataPointSelection::add(int row, int devices)
{
    if (row < 0 || row >= m_available.size())
        return {};
    if (!fits(static_cast<int>(m_selected.size()) + 1, devices)) {
        return userText("301011", "Too many data points selected for") + QLatin1Char(' ') +
               QString::number(devices) + QLatin1Char(' ') + userText("301012", "device(s)") +
               QLatin1Char('.');
    }
    m_selected.append(m_available.takeAt(row));
    return {};
}

QString DataPointSelection::addAll(int devices)
{
    while (!m_available.isEmpty()) {
        const QString refusal = add(0, devices);
        if (!refusal.isEmpty())
            return refusal;
    }
    return {};
}

void DataPointSelection::remove(int row)
{
    if (row < 0 || row >= m_selected.size())
        return;
    const DataPointRow moved = m_selected.takeAt(row);
    m_available.insert(std::upper_bound(m_available.begin(), m_available.end(), moved, byId),
                       moved);
}

void DataPointSelection::removeAll()
{
    while (!m_selected.isEmpty())
        remove(static_cast<int>(m_selected.size()) - 1);
}

void DataPointSelection::writeTable()
{
    m_ids.fill(0);
    m_names.fill(QString());
    const int count = std::min<int>(static_cast<int>(m_selected.size()), rows);
    for (int i = 0; i < count; ++i) {
        m_ids[static_cast<size_t>(i)] = m_selected.at(i).id;
        m_names[static_cast<size_t>(i)] = m_selected.at(i).name;
    }
}

QString DataPointSelection::accept(TopQueryBuffer& buffer)
{
    if (m_selected.isEmpty())
        return userText("301013", "There are no data points selected") + QLatin1Char('.');
    writeTable();
    m_accepted = m_ids;
    m_valid = true;
    buffer.ClearTopQueryBuffer(true);
    return {};
}

QString DataPointSelection::restore()
{
    m_available.append(m_selected);
    std::sort(m_available.begin(), m_available.end(), byId);
    m_selected.clear();
    const QList<qint32> accepted(m_accepted.begin(), m_accepted.end());
    if (selectIds(accepted) == 0)
        return missingPointsText("301014", "Load current data points failed");
    return {};
}

QString DataPointSelection::setDefault(DefaultSelection& stored, const QString& settingsFile)
{
    writeTable();
    m_accepted = m_ids;
    // The run's stored defaults change with the file: the next meter loads these points.
    stored.dataIds = m_ids;
    if (!stored.writeDataPoints(settingsFile))
        return userText("301016", "Cannot save the default data points to") + QLatin1Char(' ') +
               settingsFile + QLatin1Char('.');
    return userText("301017", "Default Data Points Saved.");
}

QString DataPointSelection::statusText() const
{
    const int n = count();
    if (n == 0)
        return userText("301018", "No Data Points");
    return userText("301019", "Current selected data points. Total = ") + QString::number(n);
}

} // namespace lorvane
