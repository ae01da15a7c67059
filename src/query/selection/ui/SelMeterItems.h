// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "query/selection/MeterItemOffer.h"

#include <QDialog>
#include <QList>
#include <QStringList>

class QComboBox;
class QLabel;
class QListWidget;

namespace lorvane {

class MeterTable;
class SelectionSession;
class SqliteDatabase;

/// The dialog of the inputs, relays and demand items the input, relay and demand views read,
/// one choice per open meter: three lists of check boxes over what the meter offers. The
/// rules (a list ticked whole or not at all reads every item, at most
/// `MeterItems::demandCount` demand items) are those of `MeterItemOffer` and
/// `SelectionSession::setMeterItems`; the dialog shows their answers.
class SelMeterItems : public QDialog
{
    Q_OBJECT

public:
    /// One open meter as the dialog offers it.
    struct Meter
    {
        int meterIndex = 0; ///< 0 is meter 1
        QString name;       ///< `HardwareName`
        MeterItemOffer offer;
        QStringList demandNames; ///< the data name of each offered demand id
    };

    SelMeterItems(SelectionSession& session, const QList<Meter>& meters, QWidget* parent = nullptr);

    /// The open meters of `meters` with their offers, demand ids named through `dictionary`
    /// (unnamed without one).
    static QList<Meter> metersOf(const MeterTable& meters, SqliteDatabase* dictionary);

    /// OK: hands each meter's choice to the session; a meter with more demand items than the
    /// views read is refused with a message, nothing is changed and the dialog stays open.
    void accept() override;

    /// The lists of the meter shown: 0 inputs, 1 relays, 2 demand items.
    QListWidget* list(int which) const;
    /// Shows the choice of the meter at `position` in the meter list.
    void showMeter(int position);

signals:
    /// Help topic asked for ("LRMain").
    void helpRequested(const QString& topic);

private:
    void keepTicks();
    void showDemandCount();

    SelectionSession& m_session;
    QList<Meter> m_meters;
    QList<MeterItemOffer::Ticks> m_ticks;
    int m_shown = -1;
    QComboBox* m_meterCombo = nullptr;
    QList<QListWidget*> m_lists;
    QLabel* m_demandCount = nullptr;
};

} // namespace lorvane
