// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaveGraphSetup.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace lorvane {

namespace {

enum GeneralRow
{
    StartupMode,
    OverlayModeRow,
    PlotModeRow,
    PointSizeRow,
    ForegroundRow,
    BackgroundRow,
    FrequencyRow,
    GeneralRows,
};

enum SubsetColumn
{
    NameColumn,
    SelectColumn,
    ColorColumn,
    LineColumn,
    PointColumn,
};

constexpr const char* colorProperty = "waveColor";

QColor toQColor(qint32 value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

qint32 fromQColor(const QColor& color)
{
    return color.red() | (color.green() << 8) | (color.blue() << 16);
}

void showColor(QPushButton* button, qint32 value)
{
    button->setProperty(colorProperty, value);
    // "&" would make the H a mnemonic.
    button->setText(WaveDisplaySettings::colorText(value).replace(u'&', QStringLiteral("&&")) +
                    QStringLiteral("  ..."));
    const QColor color = toQColor(value);
    const QColor ink = color.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black);
    button->setStyleSheet(
        QStringLiteral("background-color: %1; color: %2").arg(color.name(), ink.name()));
}

qint32 colorOf(QWidget* widget)
{
    return widget->property(colorProperty).toInt();
}

QComboBox* combo(const QStringList& items, int current)
{
    auto* box = new QComboBox;
    box->addItems(items);
    box->setCurrentIndex(current);
    return box;
}

QStringList lineTypes()
{
    return {userText("503240", "Thin Solid"),
            userText("503241", "Dashed"),
            userText("503242", "Dot"),
            userText("503243", "Dash Dot"),
            userText("503244", "Dash Dot Dot"),
            userText("503245", "Medium Solid"),
            userText("503246", "Thick Solid"),
            userText("503247", "Medium Thin Solid"),
            userText("503248", "Medium Thick Solid"),
            userText("503249", "Extra Thick Solid")};
}

QStringList pointTypes()
{
    return {userText("503250", "Plus"),
            userText("503251", "Cross"),
            userText("503252", "Circle"),
            userText("503253", "Solid Circle"),
            userText("503254", "Square"),
            userText("503255", "Solid Square"),
            userText("503256", "Diamond"),
            userText("503257", "Solid Diamond"),
            userText("503258", "Upward Triangle"),
            userText("503259", "Solid Upward Triangle"),
            userText("503260", "Downwared Triangle"),
            userText("503261", "Solid Downward Triangle"),
            userText("503262", "Dash"),
            userText("503263", "Pixel")};
}

} // namespace

WaveGraphSetup::WaveGraphSetup(const QString& settingsFile, QWidget* parent)
    : QDialog(parent), m_settingsFile(settingsFile),
      m_loaded(WaveDisplaySettings::read(settingsFile)),
      m_general(new QTableWidget(GeneralRows, 2)),
      m_subsets(new QTableWidget(WaveDisplaySettings::itemCount, 5))
{
    setWindowTitle(userText("503230", "Waveform Display Settings"));
    const WaveDisplaySettings& s = m_loaded;

    m_general->horizontalHeader()->hide();
    m_general->verticalHeader()->hide();
    const QStringList labels{userText("503231", "Startup Display Mode"),
                             userText("503232", "Overlay Mode"),
                             userText("503233", "Plot Mode"),
                             userText("503234", "Point Size"),
                             userText("503235", "Foreground Color"),
                             userText("503236", "Background Color"),
                             userText("503237", "Frequency(Hz)")};
    for (int r = 0; r < GeneralRows; ++r) {
        auto* item = new QTableWidgetItem(labels.at(r));
        item->setFlags(Qt::ItemIsEnabled);
        m_general->setItem(r, 0, item);
    }
    const QString overlay = userText("503264", "Overlay");
    const QString overlayGroup = userText("503265", "Overlay (Group)");
    m_general->setCellWidget(StartupMode, 1,
                             combo({userText("503266", "Classic"), overlay, overlayGroup},
                                   static_cast<int>(s.displayMode)));
    m_general->setCellWidget(OverlayModeRow, 1,
                             combo({overlay, overlayGroup}, static_cast<int>(s.overlayMode)));
    m_general->setCellWidget(PlotModeRow, 1,
                             combo({userText("503267", "Line"), userText("503268", "Point"),
                                    userText("503269", "Line & Point")},
                                   static_cast<int>(s.plotMode)));
    m_general->setCellWidget(PointSizeRow, 1,
                             combo({userText("503270", "Small"), userText("503271", "Medium"),
                                    userText("503272", "Large"), userText("503273", "Micro")},
                                   s.pointSize));
    for (const auto& [row, value] :
         {std::pair{ForegroundRow, s.foreColor}, std::pair{BackgroundRow, s.backColor}}) {
        auto* button = new QPushButton;
        showColor(button, value);
        connect(button, &QPushButton::clicked, this, [this, button] { pickColor(button); });
        m_general->setCellWidget(row, 1, button);
    }
    m_general->setCellWidget(
        FrequencyRow, 1,
        combo({QStringLiteral("50"), QStringLiteral("60")}, s.talmoFreq == 50 ? 0 : 1));
    m_general->resizeColumnsToContents();
    m_general->horizontalHeader()->setStretchLastSection(true);
    m_general->setMinimumHeight(m_general->verticalHeader()->length() + 4);

    m_subsets->setHorizontalHeaderLabels(
        {userText("503274", "Item Names"), userText("503275", "Overlay Select"),
         userText("503276", "Item Colors"), userText("503277", "Item Line Types"),
         userText("503278", "Item Point Types")});
    m_subsets->verticalHeader()->hide();
    for (int n = 0; n < WaveDisplaySettings::itemCount; ++n) {
        auto* name = new QTableWidgetItem(WaveDisplaySettings::itemNames().at(n));
        name->setFlags(Qt::ItemIsEnabled);
        m_subsets->setItem(n, NameColumn, name);
        auto* select = new QTableWidgetItem;
        select->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        select->setCheckState(s.overlayItems[n] ? Qt::Checked : Qt::Unchecked);
        m_subsets->setItem(n, SelectColumn, select);
        auto* button = new QPushButton;
        showColor(button, s.itemColor[n]);
        connect(button, &QPushButton::clicked, this, [this, button] { pickColor(button); });
        m_subsets->setCellWidget(n, ColorColumn, button);
        m_subsets->setCellWidget(n, LineColumn, combo(lineTypes(), s.itemLineType[n]));
        m_subsets->setCellWidget(n, PointColumn, combo(pointTypes(), s.itemPointType[n]));
    }
    m_subsets->resizeColumnsToContents();

    auto* ok = new QPushButton(userText("503211", "&OK"));
    auto* cancel = new QPushButton(userText("503212", "&Cancel"));
    auto* help = new QPushButton(userText("503213", "&Help"));
    connect(ok, &QPushButton::clicked, this, &WaveGraphSetup::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRWaveform")); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(help);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_general, 2);
    layout->addWidget(new QLabel(userText("503279", "Subsets")));
    layout->addWidget(m_subsets, 5);
    layout->addLayout(buttons);
    resize(720, 760);
}

QComboBox* WaveGraphSetup::choice(int row) const
{
    return qobject_cast<QComboBox*>(m_general->cellWidget(row, 1));
}

void WaveGraphSetup::pickColor(QPushButton* button)
{
    const QColor color = QColorDialog::getColor(toQColor(colorOf(button)), this);
    if (color.isValid())
        showColor(button, fromQColor(color));
}

WaveDisplaySettings WaveGraphSetup::settings() const
{
    WaveDisplaySettings s = m_loaded;
    s.displayMode =
        static_cast<WaveDisplaySettings::DisplayMode>(choice(StartupMode)->currentIndex());
    s.overlayMode =
        static_cast<WaveDisplaySettings::OverlayMode>(choice(OverlayModeRow)->currentIndex());
    s.plotMode = static_cast<WaveDisplaySettings::PlotMode>(choice(PlotModeRow)->currentIndex());
    s.pointSize = choice(PointSizeRow)->currentIndex();
    s.foreColor = colorOf(m_general->cellWidget(ForegroundRow, 1));
    s.backColor = colorOf(m_general->cellWidget(BackgroundRow, 1));
    s.talmoFreq = choice(FrequencyRow)->currentIndex() == 0 ? 50 : 60;
    for (int n = 0; n < WaveDisplaySettings::itemCount; ++n) {
        s.overlayItems[n] = m_subsets->item(n, SelectColumn)->checkState() == Qt::Checked;
        s.itemColor[n] = colorOf(m_subsets->cellWidget(n, ColorColumn));
        s.itemLineType[n] =
            qobject_cast<QComboBox*>(m_subsets->cellWidget(n, LineColumn))->currentIndex();
        s.itemPointType[n] =
            qobject_cast<QComboBox*>(m_subsets->cellWidget(n, PointColumn))->currentIndex();
    }
    return s;
}

void WaveGraphSetup::accept()
{
    if (!settings().write(m_settingsFile)) {
        userMessages().show(userText("503280", "The settings could not be written to ") +
                                m_settingsFile + u'.',
                            UserMessages::Icon::Warning, windowTitle());
        return;
    }
    QDialog::accept();
}

} // namespace lorvane
