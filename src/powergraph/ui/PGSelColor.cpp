// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGSelColor.h"

#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "powergraph/paint/PGraphPalette.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace lorvane {

PGSelColor::PGSelColor(QString settingsFile, QWidget* parent)
    : QDialog(parent), m_settingsFile(std::move(settingsFile)),
      m_defaults(PGraphModule::LoadPowerGraphDefaults(m_settingsFile))
{
    setWindowTitle(userText("802010", "Color Assignments"));
    auto* layout = new QVBoxLayout(this);
    m_kind = new QComboBox(this);
    m_kind->addItems({userText("802011", "Circle Graph"), userText("802012", "XY Graph")});
    layout->addWidget(m_kind);
    auto* grid = new QGridLayout;
    m_entries = new QListWidget(this);
    for (int i = 1; i <= 6; ++i)
        m_entries->addItem(QString::number(i));
    m_entries->addItem(userText("802013", "Foreground"));
    m_entries->addItem(userText("802014", "Background"));
    m_entries->setCurrentRow(0);
    grid->addWidget(m_entries, 0, 0, 4, 1);
    const std::array<QString, 3> names{QStringLiteral("R"), QStringLiteral("G"),
                                       QStringLiteral("B")};
    for (size_t c = 0; c < 3; ++c) {
        m_sliders.at(c) = new QSlider(Qt::Horizontal, this);
        m_sliders.at(c)->setRange(0, 255);
        m_values.at(c) = new QLabel(this);
        m_values.at(c)->setMinimumWidth(30);
        grid->addWidget(new QLabel(names.at(c), this), int(c), 1);
        grid->addWidget(m_sliders.at(c), int(c), 2);
        grid->addWidget(m_values.at(c), int(c), 3);
        connect(m_sliders.at(c), &QSlider::valueChanged, this, &PGSelColor::sliderMoved);
    }
    m_sample = new QFrame(this);
    m_sample->setFrameShape(QFrame::Box);
    m_sample->setMinimumHeight(40);
    m_sample->setAutoFillBackground(true);
    grid->addWidget(m_sample, 3, 1, 1, 3);
    layout->addLayout(grid);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(userText("802015", "&OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(userText("802016", "&Cancel"), QDialogButtonBox::RejectRole);
    QPushButton* help = buttons->addButton(userText("802017", "&Help"), QDialogButtonBox::HelpRole);
    QPushButton* restoreButton =
        buttons->addButton(userText("802018", "&Restore"), QDialogButtonBox::ResetRole);
    QPushButton* applyButton =
        buttons->addButton(userText("802019", "&Apply"), QDialogButtonBox::ApplyRole);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (apply())
            accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this,
            [this] { emit helpRequested(QStringLiteral("LRPowerGraph")); });
    connect(restoreButton, &QPushButton::clicked, this, &PGSelColor::restore);
    connect(applyButton, &QPushButton::clicked, this, &PGSelColor::apply);
    connect(m_kind, &QComboBox::currentIndexChanged, this, &PGSelColor::showEntry);
    connect(m_entries, &QListWidget::currentRowChanged, this, &PGSelColor::showEntry);
    showEntry();
}

void PGSelColor::setKind(PGraphView::Kind kind)
{
    m_kind->setCurrentIndex(int(kind));
}

PGraphView::Kind PGSelColor::kind() const
{
    return m_kind->currentIndex() == 1 ? PGraphView::Kind::XY : PGraphView::Kind::Circular;
}

PGraphColor& PGSelColor::current()
{
    const int row = std::clamp(m_entries->currentRow(), 0, PowerGraphDefaults::colorEntries - 1);
    return m_defaults.of(kind()).at(size_t(row));
}

void PGSelColor::showEntry()
{
    // Each entry of the list carries its colour, so the whole set of a kind is seen at once.
    for (int row = 0; row < m_entries->count(); ++row) {
        QPixmap swatch(14, 14);
        swatch.fill(PGraphPalette::toColor(m_defaults.of(kind()).at(size_t(row))));
        m_entries->item(row)->setIcon(QIcon(swatch));
    }
    const PGraphColor c = current();
    const std::array<int, 3> values{c.red, c.green, c.blue};
    for (size_t i = 0; i < 3; ++i) {
        const QSignalBlocker block(m_sliders.at(i));
        m_sliders.at(i)->setValue(values.at(i));
        m_values.at(i)->setNum(values.at(i));
    }
    QPalette palette = m_sample->palette();
    palette.setColor(QPalette::Window, PGraphPalette::toColor(c));
    m_sample->setPalette(palette);
}

void PGSelColor::sliderMoved()
{
    PGraphColor& c = current();
    c = {m_sliders[0]->value(), m_sliders[1]->value(), m_sliders[2]->value()};
    showEntry();
}

bool PGSelColor::apply()
{
    // The comment block is another dialog's: it is stored as the file has it now.
    PowerGraphDefaults stored = PGraphModule::LoadPowerGraphDefaults(m_settingsFile);
    stored.colors = m_defaults.colors;
    if (PGraphModule::SavePowerGraphDefaults(m_settingsFile, stored))
        return true;
    userMessages().show(userText("801065", "The settings could not be saved to") +
                            QStringLiteral(" ") + m_settingsFile,
                        UserMessages::Icon::Warning);
    return false;
}

void PGSelColor::restore()
{
    m_defaults.restore(kind());
    showEntry();
    userMessages().show(userText("802020", "Default settings restored"));
}

} // namespace lorvane
