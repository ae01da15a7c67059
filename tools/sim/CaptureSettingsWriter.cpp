// SPDX-License-Identifier: GPL-3.0-or-later
#include "CaptureSettingsWriter.h"

#include "CaptureDayTables.h"
#include "CapturePlan.h"
#include "SimMeter.h"
#include "platform/SqlStatement.h"

#include <QStringList>
#include <cmath>

namespace lorvane::sim {

namespace {

/// Input names and state names of the high-speed inputs; input 7 is left unnamed, as a meter
/// leaves an input its user never labelled.
struct InputLabel
{
    const char* label;
    const char* off;
    const char* on;
    int normal;
};

constexpr InputLabel inputLabels[8] = {
    {"Breaker 52a", "Open", "Closed", 1},
    {"Transfer Switch", "Normal", "Emergency", 0},
    {"Cabinet Door", "Closed", "Open", 0},
    {"Generator Run", "Stopped", "Running", 0},
    {"UPS Alarm", "Normal", "Alarm", 0},
    {"Capacitor Bank", "Off", "On", 0},
    {"", "Off", "On", 0},
    {"Aux Power", "Lost", "Present", 1},
};

void insert(SqliteDatabase& db, const TableLayout& layout, const QVariantMap& row)
{
    // A schema version without the table (HSInputLabels before 8.5) gets no row.
    if (layout.columns().isEmpty())
        return;
    SqlStatement statement = db.prepare(layout.insertSql());
    CaptureDayTables::insertRow(statement, layout, row);
}

QString s(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

QString CaptureSettingsWriter::ptRatioText(const SimMeter& meter)
{
    // A meter on a low-voltage supply is wired straight in: PT ratio 1.
    const QString volts = QString::number(meter.model->config().nominalVoltage);
    return volts + QLatin1Char('/') + volts;
}

QString CaptureSettingsWriter::ctRatioText(const SimMeter& meter)
{
    return QString::number(meter.model->config().ratedCurrent) + QStringLiteral("/5");
}

QString CaptureSettingsWriter::ctnRatioText(const SimMeter& meter)
{
    return ctRatioText(meter);
}

double CaptureSettingsWriter::ratio(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    if (parts.size() != 2)
        return 1.0;
    const double primary = parts.at(0).trimmed().toDouble();
    const double secondary = parts.at(1).trimmed().toDouble();
    return primary > 0.0 && secondary > 0.0 ? primary / secondary : 1.0;
}

void CaptureSettingsWriter::write(const SimMeter& meter)
{
    SqliteDatabase& db = *meter.db;
    const PowerSystemModel::Config& supply = meter.model->config();
    const double lineNominal = supply.nominalVoltage * std::sqrt(3.0);

    for (const CaptureSetting& setting : CapturePlan::settingsFor(meter.deviceTypeId)) {
        QVariantMap items{{s("Index"), setting.index},
                          {s("HookUp"), setting.hookUp},
                          {s("SampleRate"), setting.sampleRate},
                          {s("CaptureNum"), setting.rows},
                          {s("RecordFormat"), setting.recordFormat},
                          {s("PQEnables"), 0x7},
                          {s("PQEnables_Input"), 0},
                          {s("WaveEnables_Input"), 0xFF}};
        // Bits by channel number: Van Vbn Vcn, Ia Ib Ic, In when the wiring has a neutral.
        int waveEnables = 0x7 | 0x70;
        if (setting.hookUp == 2)
            waveEnables &= ~(1 << 5);
        if (setting.hookUp == 0)
            waveEnables |= 1 << 8;
        items.insert(s("WaveEnables"), waveEnables);
        auto limits = [&](int channel, double lowPercent, double highPercent) {
            const QString c = QStringLiteral("C%1_").arg(channel);
            if (lowPercent > 0.0) {
                items.insert(c + s("L1SAB"), s("Below"));
                items.insert(c + s("L1"), lowPercent);
            }
            items.insert(c + s("L2SAB"), s("Above"));
            items.insert(c + s("L2"), highPercent);
        };
        // Set points are stored in percent of the channel's full scale (FullScale1 for the
        // phase voltages, FullScale4 for the line voltages, FullScale5 for the currents).
        for (int p = 0; p < 3; ++p) {
            limits(p, 90.0, 110.0);
            limits(4 + p, 0.0, 120.0);
            limits(9 + p, 90.0, 110.0);
        }
        insert(db, meter.schema.table(s("PQWaveLogDataItem")), items);

        const double phasePower = supply.nominalVoltage * supply.ratedCurrent;
        insert(db, meter.schema.table(s("FullScales")),
               {{s("Index"), setting.index},
                {s("FullScale1"), supply.nominalVoltage},
                {s("FullScale2"), supply.nominalVoltage},
                {s("FullScale3"), supply.nominalVoltage},
                {s("FullScale4"), lineNominal},
                {s("FullScale5"), supply.ratedCurrent},
                {s("FullScale6"), phasePower},
                {s("FullScale7"), 3.0 * phasePower},
                {s("FullScale8"), supply.frequency},
                {s("PTCT_Ratio1"), ptRatioText(meter)},
                {s("PTCT_Ratio2"), ptRatioText(meter)},
                {s("PTCT_Ratio3"), ctRatioText(meter)},
                {s("PTCT_Ratio4"), ctnRatioText(meter)}});

        QVariantMap labels{{s("Index"), setting.index}};
        for (int i = 0; i < 8; ++i) {
            const QString prefix = QStringLiteral("Input_%1_").arg(i + 1);
            labels.insert(prefix + s("Label"), s(inputLabels[i].label));
            labels.insert(prefix + s("0"), s(inputLabels[i].off));
            labels.insert(prefix + s("1"), s(inputLabels[i].on));
            labels.insert(prefix + s("Normal"), inputLabels[i].normal);
        }
        insert(db, meter.schema.table(s("HSInputLabels")), labels);
    }
}

} // namespace lorvane::sim
