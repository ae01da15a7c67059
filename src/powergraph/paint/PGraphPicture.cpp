// SPDX-License-Identifier: GPL-3.0-or-later
#include "PGraphPicture.h"

#include "platform/UserText.h"
#include "powergraph/PGraphScale.h"
#include "powergraph/PGraphSession.h"
#include "powergraph/PGraphTimeText.h"

#include <QFontMetricsF>
#include <QPainter>

namespace lorvane {

namespace {

constexpr double pad = 8;
constexpr double swatch = 22;

QFont listFont(const QFont& base)
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(base.pointSizeF() > 0 ? base.pointSizeF() : 9);
    return font;
}

} // namespace

PGraphPicture::PGraphPicture(const PGraphSession* session, const PGraphPalette& palette)
    : m_session(session), m_palette(palette)
{
}

void PGraphPicture::paint(QPainter& painter, const QRectF& area) const
{
    // Output paints on white paper first: the chart's own background is laid here.
    painter.fillRect(area, m_palette.background());
    painter.setPen(m_palette.foreground());
    if (!m_session)
        return;
    const QRectF chart = paintHeader(painter, area.adjusted(pad, pad, -pad, -pad));
    if (m_session->view().kind == PGraphView::Kind::Circular)
        paintCircle(painter, chart);
    else
        paintXY(painter, chart);
    paintComment(painter, area.adjusted(pad, pad, -pad, -pad));
}

QRectF PGraphPicture::paintHeader(QPainter& painter, const QRectF& area) const
{
    QFont bold = painter.font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    painter.save();
    painter.setFont(bold);
    const double titleHeight = QFontMetricsF(bold).height();
    painter.drawText(QRectF(area.left(), area.top(), area.width(), titleHeight), Qt::AlignCenter,
                     PGraphTimeText::period(m_session->view()));
    painter.restore();
    const double line = QFontMetricsF(painter.font()).height();
    const QRectF count(area.left(), area.top() + titleHeight + 2, area.width(), line);
    painter.drawText(count, Qt::AlignLeft | Qt::AlignVCenter,
                     userText("801010", "Total Number of Records") + QStringLiteral(": ") +
                         QString::number(m_session->totalRecords()));
    return area.adjusted(0, titleHeight + line + 6, 0, 0);
}

void PGraphPicture::paintList(QPainter& painter, const QPointF& topLeft, bool compact) const
{
    painter.save();
    painter.setFont(listFont(painter.font()));
    const QFontMetricsF metrics(painter.font());
    const double line = metrics.height();
    const QString maxWord = userText("801011", "Max");
    const QString minWord = userText("801012", "Min");
    double y = topLeft.y();
    for (int i = 0; i < m_session->items().size(); ++i) {
        const PGraphItem& item = m_session->items().at(i);
        const double middle = y + line / 2;
        painter.setPen(QPen(m_palette.item(i), 3));
        painter.drawLine(QPointF(topLeft.x(), middle), QPointF(topLeft.x() + swatch, middle));
        painter.setPen(m_palette.foreground());
        const double textX = topLeft.x() + swatch + 6;
        const QString extremes = maxWord + QLatin1Char(' ') +
                                 PGraphScale::valueText(item.maximum()) + QStringLiteral("   ") +
                                 minWord + QLatin1Char(' ') +
                                 PGraphScale::valueText(item.minimum());
        if (compact) {
            painter.drawText(QPointF(textX, y + metrics.ascent()),
                             item.name + QStringLiteral("    ") + extremes);
            y += line;
        } else {
            painter.drawText(QPointF(textX, y + metrics.ascent()), item.name);
            painter.drawText(QPointF(textX, y + line + metrics.ascent()), extremes);
            y += 2 * line + 4;
        }
    }
    const PGraphView& view = m_session->view();
    y += line / 2;
    painter.drawText(QPointF(topLeft.x(), y + metrics.ascent()),
                     userText("801013", "Graph Max is") + QLatin1Char(' ') +
                         PGraphScale::valueText(view.maxY) +
                         (compact ? QStringLiteral("    ") + userText("801014", "Graph Min is") +
                                        QLatin1Char(' ') + PGraphScale::valueText(view.minY)
                                  : QString()));
    if (!compact)
        painter.drawText(QPointF(topLeft.x(), y + line + metrics.ascent()),
                         userText("801014", "Graph Min is") + QLatin1Char(' ') +
                             PGraphScale::valueText(view.minY));
    painter.restore();
}

void PGraphPicture::paintComment(QPainter& painter, const QRectF& area) const
{
    const std::array<QString, 2>& comment = m_session->view().comment;
    const double line = QFontMetricsF(painter.font()).height();
    for (size_t i = 0; i < comment.size(); ++i) {
        const QRectF row(area.left(), area.bottom() - double(comment.size() - i) * line,
                         area.width(), line);
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, comment.at(i));
    }
}

} // namespace lorvane
