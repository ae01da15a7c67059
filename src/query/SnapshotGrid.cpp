// SPDX-License-Identifier: GPL-3.0-or-later
#include "SnapshotGrid.h"

#include "QueryContext.h"
#include "ValueFormat.h"
#include "platform/SqlIdentifier.h"
#include "platform/StorageError.h"
#include "platform/UserText.h"
#include "store/DataPointLabel.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"

#include <QMap>
#include <algorithm>
#include <optional>

namespace lorvane {

namespace {

constexpr int fixedColumns = 4;

/// One line of the wide table before it becomes text.
struct Line
{
    QString stored;
    qint64 ms = 0;
    qint64 mode = 0;
    qint64 type = 0;
    qint64 profile = 0;
    QString timeText;
    QList<std::optional<double>> values;
};

QString devData(qint64 device, qint64 dataId)
{
    return QString::number(device) + QLatin1Char('_') + QString::number(dataId);
}

} // namespace

SnapshotGrid::SnapshotGrid(const QueryContext& context)
    : m_context(context), m_dateTime(QLocale()),
      m_plainPattern(ValueFormat::settingsPattern(context.dataFormat))
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
                               const QHash<QString, ScaledEnergyFormat>& scaledFormats) const
{
    const QLocale& locale = m_dateTime.locale();
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
        return ValueFormat::powerFactorText(value, m_plainPattern, locale);
    if (rule->formatId >= 0) {
        const QString key =
            QStringLiteral("%1/%2/%3").arg(deviceIndex).arg(profileIndex).arg(rule->formatId);
        const auto format = scaledFormats.constFind(key);
        if (format != scaledFormats.constEnd()) {
            // The meter logs the value in the unit its format names: the prefix goes with
            // the number, never a rescaling.
            const QString prefix = format->unitPrefix();
            const QString number = ValueFormat::text(value, format->pattern(), locale);
            return prefix.isEmpty() ? number : number + QLatin1Char(' ') + prefix;
        }
    }
    return ValueFormat::text(value, m_plainPattern, locale);
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
    QHash<QString, ScaledEnergyFormat> scaledFormats;
    if (m_context.useScaledFormats) {
        SqlStatement select = db.prepare(
            QStringLiteral(
                "SELECT [DeviceIndex], [ProfileIndex], [FormatID], [Units], [Decimals] FROM ") +
            SqlIdentifier::quote(numbers.sliceTable(QStringLiteral("ScaledFormats_"))));
        while (select.next()) {
            const QString key = QStringLiteral("%1/%2/%3")
                                    .arg(select.integer(0))
                                    .arg(select.integer(1))
                                    .arg(select.integer(2));
            if (!scaledFormats.contains(key))
                scaledFormats.insert(
                    key, ScaledEnergyFormat(int(select.integer(3)), int(select.integer(4))));
        }
    }

    // The pivot's columns: every key of the slice in ascending text order.
    const QString typeWhere =
        m_context.typeFilter != 0 ? QStringLiteral(" WHERE [TypeID] = ?") : QString();
    QVariantList typeValues;
    if (m_context.typeFilter != 0)
        typeValues << m_context.typeFilter;
    QMap<QString, std::pair<qint64, qint64>> keys;
    {
        SqlStatement select = db.prepare(
            QStringLiteral("SELECT DISTINCT [DeviceIndex], [DataID] FROM ") + source + typeWhere);
        select.bindAll(typeValues);
        while (select.next())
            keys.insert(devData(select.integer(0), select.integer(1)),
                        {select.integer(0), select.integer(1)});
    }
    // Columns by device and data id as one number: the read below looks one up per value.
    const auto columnKey = [](qint64 device, qint64 dataId) { return (device << 32) ^ dataId; };
    QHash<qint64, int> columnOf;
    QStringList firstHeading{userText("402007", "Device Index/Type/Data ID"), QString(), QString(),
                             QString()};
    QStringList secondHeading{QString(), QString(), QString(), QString()};
    for (auto key = keys.constBegin(); key != keys.constEnd(); ++key) {
        const auto [device, dataId] = key.value();
        columnOf.insert(columnKey(device, dataId), int(grid.columns.size()));
        grid.columns << key.key();
        const auto meter = devices.value(device);
        firstHeading << QStringLiteral("%1/%2/%3").arg(device).arg(meter.first).arg(dataId);
        secondHeading << label(qint32(dataId)) + QStringLiteral(" - ") + meter.second;
    }
    grid.headingRows << firstHeading << secondHeading;

    // One ordered read: the group keys in the view's direction, then read order, so the
    // first value of a key at an instant is the one kept. Grouped by type, the type comes
    // first and always ascending.
    const QString direction = m_context.descending ? QStringLiteral("DESC") : QStringLiteral("ASC");
    SqlStatement select = db.prepare(
        QStringLiteral("SELECT [Date/Time], [ms], [DTmode], [TypeID], [ProfileIndex], "
                       "[DeviceIndex], [DataID], [Value] FROM %1%2 ORDER BY %4[Date/Time] %3, "
                       "[ms] %3, [DTmode], [TypeID], [ProfileIndex], rowid")
            .arg(source, typeWhere, direction,
                 m_context.groupByType ? QStringLiteral("[TypeID] ASC, ") : QString()));
    select.bindAll(typeValues);
    QList<Line> lines;
    const QString format = m_dateTime.dateTimeFormat();
    const int width = int(grid.columns.size());
    while (select.next()) {
        const QString stored = select.text(0);
        const qint64 ms = select.integer(1);
        const qint64 mode = select.integer(2);
        const qint64 type = select.integer(3);
        const qint64 profile = select.integer(4);
        if (lines.isEmpty() || lines.last().stored != stored || lines.last().ms != ms ||
            lines.last().mode != mode || lines.last().type != type ||
            lines.last().profile != profile) {
            Line line{stored, ms, mode, type, profile, {}, {}};
            line.values.resize(width);
            const QDateTime clock = StampedTime::parseClock(stored);
            line.timeText =
                StampedTime(clock, double(ms), int(mode))
                    .text(format, m_dateTime.locale(), StampedTime::Fraction::Thousandths);
            lines.append(std::move(line));
        }
        const int column = columnOf.value(columnKey(select.integer(5), select.integer(6)));
        std::optional<double>& cell = lines.last().values[column];
        if (!cell && !select.isNull(7))
            cell = select.real(7);
    }

    // Another sort item: its values in the chosen direction; equal values keep the order of
    // the read (type when grouped, then time), never the order of the time's display text.
    const QString sortColumn = m_context.sortColumn;
    const int sortIndex = sortColumn.isEmpty() ? -1 : int(grid.columns.indexOf(sortColumn));
    if (sortIndex > 0) {
        const bool descending = m_context.descending;
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
        const bool grouped = m_context.groupByType;
        std::stable_sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) {
            if (grouped && a.type != b.type)
                return a.type < b.type;
            const std::optional<double> ka = keyOf(a);
            const std::optional<double> kb = keyOf(b);
            // An empty cell sorts before every value, as a NULL does.
            return descending ? kb < ka : ka < kb;
        });
    }

    QHash<int, std::pair<qint64, qint32>> columnKeys;
    for (auto key = keys.constBegin(); key != keys.constEnd(); ++key)
        columnKeys.insert(columnOf.value(columnKey(key.value().first, key.value().second)),
                          {key.value().first, qint32(key.value().second)});
    for (const Line& line : lines) {
        QStringList row{line.timeText, QString::number(line.mode), QString::number(line.type),
                        QString::number(line.profile)};
        for (int c = fixedColumns; c < width; ++c) {
            const std::optional<double>& value = line.values[c];
            if (!value) {
                row << ValueFormat::nullText();
                continue;
            }
            const auto [device, dataId] = columnKeys.value(c);
            row << cellText(*value, device, dataId, line.profile, scaledFormats);
        }
        grid.rows << row;
        grid.rowKeys << QVariantMap{{QStringLiteral("Date/Time"), line.stored},
                                    {QStringLiteral("ms"), line.ms},
                                    {QStringLiteral("DTmode"), line.mode}};
        grid.rowPictures << QString();
    }
    return grid;
}

} // namespace lorvane
