// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelMeterItems.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "query/selection/SelectionSession.h"
#include "store/DataPointLabel.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace lorvane {

namespace {

QString channelText(const MeterItemOffer::Channel& channel)
{
    return QStringLiteral("%1 / %2 (%3:%4)")
        .arg(channel.moduleLabel, channel.label)
        .arg(channel.place.module)
        .arg(channel.place.index);
}

void fill(QListWidget* list, const QStringList& texts, const QList<bool>& ticks)
{
    list->clear();
    for (qsizetype i = 0; i < texts.size(); ++i) {
        auto* item = new QListWidgetItem(texts.at(i), list);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
        item->setCheckState(ticks.value(i) ? Qt::Checked : Qt::Unchecked);
    }
}

QList<bool> ticksOf(const QListWidget* list)
{
    QList<bool> ticks;
    for (int i = 0; i < list->count(); ++i)
        ticks << (list->item(i)->checkState() == Qt::Checked);
    return ticks;
}

bool sameChoice(const MeterItems& a, const MeterItems& b)
{
    return a.inputs == b.inputs && a.relays == b.relays && a.demandIds == b.demandIds;
}

} // namespace

SelMeterItems::SelMeterItems(SelectionSession& session, const QList<Meter>& meters, QWidget* parent)
    : QDialog(parent), m_session(session), m_meters(meters)
{
    setWindowTitle(userText("310600", "Select Inputs, Relays and Demand Items"));
    for (const Meter& meter : m_meters)
        m_ticks << meter.offer.ticksOf(m_session.meters().device(meter.meterIndex).items);

    auto* layout = new QVBoxLayout(this);
    auto* meterRow = new QHBoxLayout;
    meterRow->addWidget(new QLabel(userText("310601", "Meter")));
    m_meterCombo = new QComboBox;
    m_meterCombo->setObjectName(QStringLiteral("MeterCombo"));
    for (const Meter& meter : m_meters)
        m_meterCombo->addItem(userText("310602", "Meter") + QLatin1Char(' ') +
                              QString::number(meter.meterIndex + 1) + QStringLiteral(": ") +
                              meter.name);
    meterRow->addWidget(m_meterCombo, 1);
    layout->addLayout(meterRow);

    auto* listsRow = new QHBoxLayout;
    const std::array<std::pair<const char*, const char*>, 3> headings{
        {{"310603", "Inputs"}, {"310604", "Relays"}, {"310605", "Demand Items"}}};
    const QStringList names{QStringLiteral("InputList"), QStringLiteral("RelayList"),
                            QStringLiteral("DemandList")};
    for (int i = 0; i < 3; ++i) {
        auto* box =
            new QGroupBox(userText(headings.at(size_t(i)).first, headings.at(size_t(i)).second));
        auto* boxLayout = new QVBoxLayout(box);
        auto* list = new QListWidget;
        list->setObjectName(names.at(i));
        list->setMinimumWidth(220);
        boxLayout->addWidget(list);
        m_lists << list;
        if (i == 2) {
            m_demandCount = new QLabel;
            m_demandCount->setObjectName(QStringLiteral("DemandCount"));
            boxLayout->addWidget(m_demandCount);
            connect(list, &QListWidget::itemChanged, this, [this] { showDemandCount(); });
        }
        listsRow->addWidget(box);
    }
    layout->addLayout(listsRow, 1);
    auto* note = new QLabel(
        userText("310606", "A list with every item ticked, or none, reads every item of its log."));
    note->setWordWrap(true);
    layout->addWidget(note);

    auto* buttons = new QDialogButtonBox;
    buttons->addButton(userText("310607", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("310608", "&Cancel"), QDialogButtonBox::RejectRole);
    QPushButton* help = buttons->addButton(userText("310609", "&Help"), QDialogButtonBox::HelpRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &SelMeterItems::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SelMeterItems::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRMain")); });
    layout->addWidget(buttons);

    connect(m_meterCombo, &QComboBox::currentIndexChanged, this, &SelMeterItems::showMeter);
    showMeter(0);
}

QList<SelMeterItems::Meter> SelMeterItems::metersOf(const MeterTable& meters,
                                                    SqliteDatabase* dictionary)
{
    QList<Meter> result;
    for (int i = 0; i < meters.maxDevices(); ++i) {
        const DeviceRecord& device = meters.device(i);
        if (!device.used)
            continue;
        LogFileEntry file;
        file.dbPath = device.filePath;
        file.deviceTypeId = device.deviceTypeId;
        file.used = true;
        Meter meter{i, device.hardwareName, MeterItemOffer::read(file), {}};
        for (qint64 id : meter.offer.demandIds)
            meter.demandNames << (dictionary ? DataPointLabel::text(*dictionary, qint32(id))
                                             : QString());
        result << meter;
    }
    return result;
}

QListWidget* SelMeterItems::list(int which) const
{
    return m_lists.value(which);
}

void SelMeterItems::keepTicks()
{
    if (m_shown < 0 || m_shown >= m_ticks.size())
        return;
    m_ticks[m_shown] = {ticksOf(m_lists.at(0)), ticksOf(m_lists.at(1)), ticksOf(m_lists.at(2))};
}

void SelMeterItems::showMeter(int position)
{
    if (position < 0 || position >= m_meters.size())
        return;
    keepTicks();
    m_shown = position;
    if (m_meterCombo->currentIndex() != position) {
        // The combo box calls back here; the lists shown are no longer the ones it would keep.
        const QSignalBlocker comboBlocker(m_meterCombo);
        m_meterCombo->setCurrentIndex(position);
    }
    const Meter& meter = m_meters.at(position);
    const MeterItemOffer::Ticks& ticks = m_ticks.at(position);
    QStringList inputs;
    for (const MeterItemOffer::Channel& channel : meter.offer.inputs)
        inputs << channelText(channel);
    QStringList relays;
    for (const MeterItemOffer::Channel& channel : meter.offer.relays)
        relays << channelText(channel);
    QStringList demand;
    for (qsizetype i = 0; i < meter.offer.demandIds.size(); ++i)
        demand << QString::number(meter.offer.demandIds.at(i)) + QLatin1Char('\t') +
                      meter.demandNames.value(i);
    const QSignalBlocker blocker(m_lists.at(2));
    fill(m_lists.at(0), inputs, ticks.inputs);
    fill(m_lists.at(1), relays, ticks.relays);
    fill(m_lists.at(2), demand, ticks.demand);
    showDemandCount();
}

void SelMeterItems::showDemandCount()
{
    const QList<bool> ticks = ticksOf(m_lists.at(2));
    m_demandCount->setText(userText("310610", "Ticked") + QStringLiteral(": ") +
                           QString::number(ticks.count(true)) + QStringLiteral(" / ") +
                           QString::number(ticks.size()) + QStringLiteral(", ") +
                           userText("310611", "at most") + QLatin1Char(' ') +
                           QString::number(MeterItems::demandCount));
}

void SelMeterItems::accept()
{
    keepTicks();
    QList<MeterItems> choices;
    for (qsizetype i = 0; i < m_meters.size(); ++i) {
        const MeterItems choice = m_meters.at(i).offer.choose(m_ticks.at(i));
        if (choice.demandIds.size() > MeterItems::demandCount) {
            showMeter(int(i));
            userMessages().show(userText("310612", "Too many demand items selected for") +
                                    QLatin1Char(' ') + m_meters.at(i).name + QStringLiteral(". ") +
                                    userText("310613", "At most") + QLatin1Char(' ') +
                                    QString::number(MeterItems::demandCount) + QLatin1Char(' ') +
                                    userText("310614", "can be read") + QLatin1Char('.'),
                                UserMessages::Icon::Warning);
            return;
        }
        choices << choice;
    }
    // An unchanged choice keeps the buffered queries: they read what it reads.
    for (qsizetype i = 0; i < m_meters.size(); ++i) {
        const int meterIndex = m_meters.at(i).meterIndex;
        if (!sameChoice(choices.at(i), m_session.meters().device(meterIndex).items))
            m_session.setMeterItems(meterIndex, choices.at(i));
    }
    QDialog::accept();
}

} // namespace lorvane
