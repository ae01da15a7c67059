// SPDX-License-Identifier: GPL-3.0-or-later
#include "WaitFrm.h"

#include "app/RunContext.h"
#include "platform/UserText.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace lorvane {

namespace {

constexpr int pictureSize = 40;
constexpr int tickMilliseconds = 100;
/// The bar counts thousandths of the work.
constexpr int barSteps = 1000;

QString colourName(const RunContext::Colour& colour)
{
    return QColor(colour.red, colour.green, colour.blue).name();
}

} // namespace

WaitFrm::WaitFrm(const RunContext& context, QWidget* parent)
    : QDialog(parent), m_title(context.title)
{
    setObjectName(QStringLiteral("WaitFrm"));
    setWindowTitle(m_title);
    setModal(false);

    auto* header = new QWidget(this);
    header->setObjectName(QStringLiteral("header"));
    header->setAutoFillBackground(true);
    header->setStyleSheet(
        QStringLiteral("#header { background: %1; } QLabel { color: %2; }")
            .arg(colourName(context.headerColour), colourName(context.headerTextColour)));
    auto* headerLayout = new QHBoxLayout(header);
    m_picture = new QLabel(header);
    m_picture->setFixedSize(pictureSize, pictureSize);
    headerLayout->addWidget(m_picture);
    auto* lineLayout = new QVBoxLayout;
    for (QLabel*& line : m_lines) {
        line = new QLabel(header);
        line->setMinimumWidth(320);
        lineLayout->addWidget(line);
    }
    m_lines[0]->setText(userText("309000", "Please wait"));
    QFont bold = m_lines[0]->font();
    bold.setBold(true);
    m_lines[0]->setFont(bold);
    headerLayout->addLayout(lineLayout, 1);

    m_bar = new QProgressBar(this);
    m_bar->setRange(0, 0);
    m_bar->setTextVisible(false);
    m_cancel = new QPushButton(userText("309001", "&Cancel"), this);
    connect(m_cancel, &QPushButton::clicked, this, &WaitFrm::cancelClicked);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(header);
    layout->addWidget(m_bar);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    layout->addLayout(buttons);

    drawFrame();
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());

    m_timer = new QTimer(this);
    m_timer->setInterval(tickMilliseconds);
    connect(m_timer, &QTimer::timeout, this, &WaitFrm::Timer1_Timer);
    m_timer->start();
}

void WaitFrm::SetMessage(int line, const QString& text)
{
    if (line < 0 || line >= static_cast<int>(m_lines.size()))
        return;
    m_lines[static_cast<size_t>(line)]->setText(text);
}

QString WaitFrm::message(int line) const
{
    if (line < 0 || line >= static_cast<int>(m_lines.size()))
        return {};
    return m_lines[static_cast<size_t>(line)]->text();
}

void WaitFrm::showFraction(std::optional<double> fraction)
{
    if (!fraction) {
        m_bar->setRange(0, 0);
        return;
    }
    m_bar->setRange(0, barSteps);
    m_bar->setValue(int(*fraction * barSteps + 0.5));
}

void WaitFrm::status(const QString& text)
{
    SetMessage(1, text);
    QCoreApplication::processEvents();
}

void WaitFrm::serve()
{
    QCoreApplication::processEvents();
}

void WaitFrm::Timer1_Timer()
{
    m_frame = (m_frame + 1) % animationFrames;
    drawFrame();
    if (m_frame < framesInFront && isVisible()) {
        raise();
        activateWindow();
    }
}

void WaitFrm::cancelClicked()
{
    // The button goes grey at once: a second click cannot reach the load again.
    requestCancel();
    m_cancel->setEnabled(false);
    setWindowTitle(m_title + u' ' + userText("309002", "Cancel operation in progress") + u'.');
}

void WaitFrm::drawFrame()
{
    QPixmap pixmap(pictureSize, pictureSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring(4, 4, pictureSize - 8, pictureSize - 8);
    painter.setPen(QPen(QColor(255, 255, 255, 80), 5));
    painter.drawEllipse(ring);
    painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap));
    // Qt counts arcs in sixteenths of a degree; one frame turns the arc by an eighteenth of a turn.
    const int startAngle = -m_frame * (360 / animationFrames) * 16;
    painter.drawArc(ring, startAngle, 100 * 16);
    painter.end();
    m_picture->setPixmap(pixmap);
}

} // namespace lorvane
