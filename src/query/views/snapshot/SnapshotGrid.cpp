// SPDX-License-Identifier: GPL-3.0-or-later
#include "SnapshotGrid.h"

#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "query/engine/QueryContext.h"
#include "query/engine/ValueFormat.h"
#include "store/DataPointLabel.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"

#include <QMap>
#include <algorithm>
#include <optional>
#include <tuple>

namespace lorvane {

namespace {

constexpr int fixedColumns = 4;

/// One line of the wide table before it becomes text.
struct Line
{
    qint64 clock = 0;
    qint64 ms = 0;
    qint64 mode = 0;
    qint64 type = 0;
    qint64 profile = 0;
    QList<std::optional<double>> values;
};

/// One value row of the slice as read: numbers only, so that a page of many thousand rows
/// is read and ordered without a text per row.
struct ValueRow
{
    /// The stored time's digits as one number (YYYYMMDDhhmmss), which orders as the text does.
    qint64 clock = 0;
    qint64 ms = 0;
    qint64 mode = 0;
    qint64 type = 0;
    qint64 profile = 0;
    qint64 rowid = 0;
    /// The row's `Dev_Data` key, as its place in the keys met while reading.
    int key = 0;
    bool hasValue = false;
    double value = 0.0;
};

qint64 clockNumber(QByteArrayView stored)
{
    qint64 number = 0;
    for (const char c : stored) {
        if (c >= '0' && c <= '9')
            number = number * 10 + (c - '0');
    }
    return number;
}

QString devData(qint64 device, qint64 dataId)
{
    return QString::number(device) + QLatin1Char('_') + QString::number(dataId);
}

/// A scaled format of the slice by device, profile and format id.
qint64 scaledKey(qint64 device, qint64 profile, qint64 formatId)
{
    return (device << 48) ^ (profile << 24) ^ formatId;
}

} // namespace

SnapshotGrid::SnapshotGrid(const QueryContext& context)
    : m_context(context), m_dateTime(QLocale()),
      m_plain(ValueFormat::settingsPattern(context.dataFormat), QLocale())
{
    if (!context.dictionary)
        return;
    // A dictionary without these tables formats every value as a plain number.
    try {
        m_lookUp.load(*context.dictionary);
    } catch (const StorageError&) {
    }
    try {
        m_scaledFormats.load(*context.dictionary);
    } catch (const StorageError&) {
    }
}

QString SnapshotGrid::label(qint32 dataId) const
{
    auto found = m_labels.constFind(dataId);
    if (found != m_labels.constEnd())
        return *found;
    const QString text = m_context.dictionary ? DataPointLabel::text(*m_context.dictionary, dataId)
                                              : QString::number(dataId);
    m_labels.insert(dataId, text);
    return text;
}

QString SnapshotGrid::cellText(double value, qint64 deviceIndex, qint32 dataId, qint64 profileIndex,
                               const QHash<qint64, ScaledCell>& scaledFormats) const
{
    // The dictionary's rule of a point is looked up once per point, not once per cell.
    auto rule = m_rules.constFind(dataId);
    if (rule == m_rules.constEnd()) {
        PointRule found;
        const std::optional<DeviceDataLookUp::Entry> kind = m_lookUp.find(dataId);
        found.powerFactor = kind && kind->type == DeviceDataLookUp::PowerFactorBand;
        if (m_context.useScaledFormats) {
            if (const std::optional<DeviceScaledFormats::Entry> scaled =
                    m_scaledFormats.find(dataId))
                found.formatId = scaled->formatId;
        }
        rule = m_rules.insert(dataId, found);
    }
    if (rule->powerFactor)
        return ValueFormat::powerFactorText(value, m_plain);
    if (rule->formatId >= 0) {
        const auto format =
            scaledFormats.constFind(scaledKey(deviceIndex, profileIndex, rule->formatId));
        if (format != scaledFormats.constEnd()) {
            // The meter logs the value in the unit its format names: the prefix goes with
            // the number, never a rescaling.
            const QString number = format->pattern.text(value);
            return format->prefix.isEmpty() ? number : number + QLatin1Char(' ') + format->prefix;
        }
    }
    return m_plain.text(value);
}

GridTable SnapshotGrid::fill(const QueryNumbers& numbers, const QString& caption) const
{
    SqliteDatabase& db = m_context.scratch->database();
    const QString source = SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("HistLog_")));
    GridTable grid;
    grid.caption = caption;
    grid.columns =
        QStringList{userText("402003", "Date/Time"), userText("402004", "DTmode"),
                    userText("402005", "Record Type"), userText("402006", "Profile Index")};

    // Meters of the query: type and name by device index.
    QHash<qint64, std::pair<qint64, QString>> devices;
    {
        SqlStatement select = db.prepare(
            QStringLiteral("SELECT [DeviceIndex], [DeviceTypeID], [HardwareName] FROM ") +
            SqlIdentifier::quote(numbers.table(QStringLiteral("LogDevices_"))));
        while (select.next())
            devices.insert(select.integer(0), {select.integer(1), select.text(2)});
    }
    // Scaled formats of the slice by device, profile and format id.
    QHash<qint64, ScaledCell> scaledFormats;
    if (m_context.useScaledFormats) {
        SqlStatement select = db.prepare(
            QStringLiteral(
                "SELECT [DeviceIndex], [ProfileIndex], [FormatID], [Units], [Decimals] FROM ") +
            SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("ScaledFormats_"))));
        while (select.next()) {
            const qint64 key = scaledKey(select.integer(0), select.integer(1), select.integer(2));
            if (!scaledFormats.contains(key)) {
                const ScaledEnergyFormat format(int(select.integer(3)), int(select.integer(4)));
                scaledFormats.insert(
                    key, ScaledCell{ValueFormat::Pattern(format.pattern(), m_plain.locale()),
                                    format.unitPrefix()});
            }
        }
    }

    // One read of the slice in its stored order; the order of the grid is made here, which
    // costs far less than the database's sorter over every value row of a page.
    QString sql = QStringLiteral("SELECT [Date/Time], [ms], [DTmode], [TypeID], [ProfileIndex], "
                                 "[DeviceIndex], [DataID], [Value], rowid FROM ") +
                  source;
    if (m_context.typeFilter != 0)
        sql += QStringLiteral(" WHERE [TypeID] = ?");
    SqlStatement select = db.prepare(sql);
    if (m_context.typeFilter != 0)
        select.bindAll({m_context.typeFilter});
    QList<ValueRow> values;
    // The keys met while reading, by device and data id as one number, and the stored text of
    // each instant (the rows of an instant come together, so a text is made once per instant).
    const auto pairKey = [](qint64 device, qint64 dataId) { return (device << 32) ^ dataId; };
    QHash<qint64, int> keyIndex;
    QList<std::pair<qint64, qint64>> keyPairs;
    QHash<qint64, QString> storedOf;
    qint64 lastClock = -1;
    while (select.next()) {
        const QByteArrayView stored = select.bytes(0);
        ValueRow row;
        row.clock = clockNumber(stored);
        if (row.clock != lastClock) {
            lastClock = row.clock;
            if (!storedOf.contains(row.clock))
                storedOf.insert(row.clock, QString::fromUtf8(stored));
        }
        row.ms = select.integer(1);
        row.mode = select.integer(2);
        row.type = select.integer(3);
        row.profile = select.integer(4);
        const qint64 device = select.integer(5);
        const qint64 dataId = select.integer(6);
        row.hasValue = !select.isNull(7);
        if (row.hasValue)
            row.value = select.real(7);
        row.rowid = select.integer(8);
        const qint64 pair = pairKey(device, dataId);
        auto found = keyIndex.constFind(pair);
        if (found == keyIndex.constEnd()) {
            found = keyIndex.insert(pair, int(keyPairs.size()));
            keyPairs.append({device, dataId});
        }
        row.key = *found;
        values.append(row);
    }
    // The pivot's columns: every key of the slice in ascending text order.
    QMap<QString, std::pair<qint64, qint64>> keys;
    for (const auto& [device, dataId] : keyPairs)
        keys.insert(devData(device, dataId), {device, dataId});
    // The group keys in the view's direction, then the order of reading, so the first value
    // of a key at an instant is the one kept. Grouped by type, the type comes first and
    // always ascending.
    const bool descending = m_context.descending;
    const bool grouped = m_context.groupByType;
    std::sort(values.begin(), values.end(),
              [descending, grouped](const ValueRow& a, const ValueRow& b) {
                  if (grouped && a.type != b.type)
                      return a.type < b.type;
                  if (a.clock != b.clock)
                      return descending ? b.clock < a.clock : a.clock < b.clock;
                  if (a.ms != b.ms)
                      return descending ? b.ms < a.ms : a.ms < b.ms;
                  return std::tie(a.mode, a.type, a.profile, a.rowid) <
                         std::tie(b.mode, b.type, b.profile, b.rowid);
              });

    // The column of each key met while reading: the rows below look one up per value.
    QList<int> columnOf(keyPairs.size());
    QStringList firstHeading{userText("402007", "Device Index/Type/Data ID"), QString(), QString(),
                             QString()};
    QStringList secondHeading{QString(), QString(), QString(), QString()};
    for (auto key = keys.constBegin(); key != keys.constEnd(); ++key) {
        const auto [device, dataId] = key.value();
        columnOf[keyIndex.value(pairKey(device, dataId))] = int(grid.columns.size());
        grid.columns << key.key();
        const auto meter = devices.value(device);
        firstHeading << QStringLiteral("%1/%2/%3").arg(device).arg(meter.first).arg(dataId);
        secondHeading << label(qint32(dataId)) + QStringLiteral(" - ") + meter.second;
    }
    grid.headingRows << firstHeading << secondHeading;

    QList<Line> lines;
    const int width = int(grid.columns.size());
    for (const ValueRow& row : values) {
        if (lines.isEmpty() || lines.last().clock != row.clock || lines.last().ms != row.ms ||
            lines.last().mode != row.mode || lines.last().type != row.type ||
            lines.last().profile != row.profile) {
            Line line{row.clock, row.ms, row.mode, row.type, row.profile, {}};
            line.values.resize(width);
            lines.append(std::move(line));
        }
        std::optional<double>& cell = lines.last().values[columnOf.at(row.key)];
        if (!cell && row.hasValue)
            cell = row.value;
    }

    // Another sort item: its values in the chosen direction; equal values keep the order of
    // the read (type when grouped, then time), never the order of the time's display text.
    const QString sortColumn = m_context.sortColumn;
    const int sortIndex = sortColumn.isEmpty() ? -1 : int(grid.columns.indexOf(sortColumn));
    if (sortIndex > 0) {
        const auto keyOf = [sortIndex](const Line& line) -> std::optional<double> {
            switch (sortIndex) {
            case 1:
                return double(line.mode);
            case 2:
                return double(line.type);
            case 3:
                return double(line.profile);
            default:
                return line.values[sortIndex];
            }
        };
        std::stable_sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) {
            if (grouped && a.type != b.type)
                return a.type < b.type;
            const std::optional<double> ka = keyOf(a);
            const std::optional<double> kb = keyOf(b);
            // An empty cell sorts before every value, as a NULL does.
            return descending ? kb < ka : ka < kb;
        });
    }

    QList<std::pair<qint64, qint32>> columnKeys(width);
    for (auto key = keys.constBegin(); key != keys.constEnd(); ++key)
        columnKeys[columnOf.at(keyIndex.value(pairKey(key.value().first, key.value().second)))] = {
            key.value().first, qint32(key.value().second)};
    const QString format = m_dateTime.dateTimeFormat();
    grid.rows.reserve(lines.size());
    for (const Line& line : lines) {
        const QString stored = storedOf.value(line.clock);
        const QString time =
            StampedTime(StampedTime::parseClock(stored), double(line.ms), int(line.mode))
                .text(format, m_dateTime.locale(), StampedTime::Fraction::Thousandths);
        QStringList row{time, QString::number(line.mode), QString::number(line.type),
                        QString::number(line.profile)};
        row.reserve(width);
        for (int c = fixedColumns; c < width; ++c) {
            const std::optional<double>& value = line.values[c];
            if (!value) {
                row << ValueFormat::nullText();
                continue;
            }
            const auto [device, dataId] = columnKeys.at(c);
            row << cellText(*value, device, dataId, line.profile, scaledFormats);
        }
        grid.rows << row;
        grid.rowKeys << QVariantMap{{QStringLiteral("Date/Time"), stored},
                                    {QStringLiteral("ms"), line.ms},
                                    {QStringLiteral("DTmode"), line.mode}};
        grid.rowPictures << QString();
    }
    return grid;
}

} // namespace lorvane
