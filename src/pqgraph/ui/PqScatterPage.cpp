// SPDX-License-Identifier: GPL-3.0-or-later
#include "PqScatterPage.h"

#include "ClassicPalette.h"
#include "PqScatterCanvas.h"
#include "pqgraph/PqGraphSession.h"
#include "pqgraph/PqGraphTexts.h"
#include "pqgraph/PqPointSeries.h"

#include <QLabel>
#include <QLegendMarker>
#include <QLineSeries>
#include <QMouseEvent>
#include <QScatterSeries>
#include <QVBoxLayout>
#include <cmath>

namespace lorvane {

namespace {

/// A duration as the axis labels it: "1us", "20ms", "5s".
QString durationText(double seconds)
{
    const auto text = [](double value, const char* unit) {
        return QString::number(value, 'g', 3) + QLatin1String(unit);
    };
    // Rounded to the decade first, so that 10^-3 reads "1ms" and not "1000us".
    const double exponent = std::round(std::log10(seconds) * 1e6) / 1e6;
    if (exponent >= 0)
        return text(seconds, "s");
    if (exponent >= -3)
        return text(seconds * 1e3, "ms");
    return text(seconds * 1e6, "us");
}

} // namespace

PqScatterPage::PqScatterPage(const PqGraphSession& session, QWidget* parent)
    : QWidget(parent), m_session(session), m_canvas(new PqScatterCanvas(session)),
      m_devices(new QLabel), m_summary(new QLabel)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_devices);
    layout->addWidget(m_summary);
    m_summary->setWordWrap(true);
    m_canvas->setLogX(true);
    m_canvas->setXTickText(durationText);
    m_canvas->setTitles(PqGraphTexts::title2d(), PqGraphTexts::durationTitle(),
                        PqGraphTexts::magnitudeTitle());
    QFont title = m_canvas->chart()->titleFont();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.3);
    m_canvas->chart()->setTitleFont(title);
    m_canvas->setZoomAxes(ChartCanvas::ZoomAxes::Both);
    m_canvas->setLimits({0.01, 1});
    // The pointer on a line of the envelope reads the line's corner.
    m_canvas->setValueText([](const QString& name, const QPointF& value) {
        return name + QStringLiteral(": ") + durationText(value.x()) + QStringLiteral(", ") +
               QString::number(value.y(), 'f', 1) + QStringLiteral(" %");
    });
    m_canvas->viewport()->installEventFilter(this);
}

void PqScatterPage::redraw()
{
    m_canvas->clearSeries();
    for (int c = 0; c < PqEvents::channelCount; ++c) {
        auto* dots = new QScatterSeries;
        dots->setName(QString::fromLatin1(PqEvents::channels().at(c).name));
        dots->setColor(ClassicPalette::channel(c));
        dots->setBorderColor(ClassicPalette::channel(c).darker(140));
        dots->setMarkerSize(7);
        // The canvas paints the events; the series gives the channel its legend entry.
        m_canvas->addSeries(dots, std::make_shared<PqPointSeries>(QList<QPointF>{}));
    }
    QStringList named;
    for (const EnvelopePolyline& line : m_session.envelope().polylines) {
        auto* look = new QLineSeries;
        look->setName(line.name);
        look->setPen(QPen(ClassicPalette::color(line.color), 2));
        m_canvas->addSeries(look, std::make_shared<PqPointSeries>(line.points));
        // One legend entry per line name: the CBEMA curve's two lines are one curve.
        if (named.contains(line.name)) {
            for (QLegendMarker* marker : m_canvas->chart()->legend()->markers(look))
                marker->setVisible(false);
        }
        named << line.name;
    }
    m_canvas->chart()->legend()->setAlignment(Qt::AlignRight);
    m_canvas->setBounds({{1e-6, 100}, {0, 500}});
    m_devices->setText(m_session.deviceListText());
    m_summary->setText(m_session.summaryText());
}

QString PqScatterPage::hoverText() const
{
    return m_canvas->eventText().isEmpty() ? m_canvas->hoverText() : m_canvas->eventText();
}

bool PqScatterPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (const std::optional<PqScatterCanvas::Hit> hit = m_canvas->eventAt(mouse->position()))
            emit eventActivated(hit->channel, hit->index);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lorvane
