// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelayLogicPicture.h"

#include "RelayGateSymbol.h"
#include "platform/UserText.h"
#include "relaylogic/RelayLogicTexts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace lorvane {

namespace {

using Kind = RelayLogicNode::Kind;

QColor colour(RelayNodeState state)
{
    switch (state) {
    case RelayNodeState::Active:
        return RelayLogicPicture::activeColour();
    case RelayNodeState::Inactive:
        return RelayLogicPicture::inactiveColour();
    default:
        return RelayLogicPicture::unknownColour();
    }
}

QColor fill(RelayNodeState state)
{
    QColor c = colour(state);
    c.setAlpha(40);
    return c;
}

/// Where the tree's columns and rows fall in the picture, and the sizes of its shapes.
class Frame
{
public:
    Frame(QPainter& painter, const QRectF& area, const RelayLogicTree& tree)
    {
        const double lineHeight = std::clamp(area.height() / 34.0, 9.0, 15.0);
        QFont font = painter.font();
        font.setPixelSize(int(lineHeight));
        painter.setFont(font);
        const QFontMetricsF metrics(font);
        m_line = metrics.height();
        // Two heading lines and the column heads above the tree, the legend below it.
        const double top = area.top() + 5.0 * m_line;
        const double bottom = area.bottom() - 2.5 * m_line;
        double labels = 0.0;
        for (const RelayLogicNode& n : tree.nodes)
            if (n.kind == Kind::Input)
                labels = std::max(labels, metrics.horizontalAdvance(RelayLogicTexts::label(n)));
        m_labelWidth = std::min(std::ceil(labels) + 2.0, area.width() * 0.3);
        const QString relayText =
            std::max(tree.relayName, RelayLogicTexts::finalState(tree),
                     [&](const QString& a, const QString& b) {
                         return metrics.horizontalAdvance(a) < metrics.horizontalAdvance(b);
                     });
        const double right =
            area.right() - std::max(metrics.horizontalAdvance(relayText) * 0.55 + 8, m_line * 2.5);
        m_left = area.left() + 10 + m_labelWidth + m_line;
        m_step = tree.columns > 1 ? (right - m_left) / (tree.columns - 1) : 0.0;
        m_rowHeight = (bottom - top) / std::max(1.0, tree.rows);
        m_top = top;
        m_gate = QSizeF(std::min(m_step * 0.42, m_line * 4.0),
                        std::min(m_rowHeight * 0.9, m_line * 3.0));
        m_area = area;
    }

    QPointF centre(const RelayLogicNode& n) const
    {
        return QPointF(m_left + n.column * m_step, m_top + (n.row + 0.5) * m_rowHeight);
    }
    /// The shape of a node: a gate's symbol box, a set path's, a delay's or the relay's box.
    QRectF box(const RelayLogicNode& n) const
    {
        const QPointF c = centre(n);
        QSizeF size = m_gate;
        switch (n.kind) {
        case Kind::Input:
            size = QSizeF(m_line, m_line);
            break;
        case Kind::SetPath:
            size = QSizeF(m_line * 2.2, m_line * 1.4);
            break;
        case Kind::Delay:
            size = QSizeF(std::min(m_step * 0.8, m_line * 6.5), m_line * 2.4);
            break;
        case Kind::Relay:
            size = QSizeF(m_line * 3.0, m_line * 2.4);
            break;
        default:
            break;
        }
        return QRectF(c.x() - size.width() / 2, c.y() - size.height() / 2, size.width(),
                      size.height());
    }
    /// Where an edge leaves `from` and meets `to` (a gate's pin, else the left edge).
    QPointF exit(const RelayLogicNode& n) const
    {
        return n.kind == Kind::Gate ? RelayGateSymbol::output(box(n))
                                    : QPointF(box(n).right(), centre(n).y());
    }
    QPointF entry(const RelayLogicNode& n, int pin) const
    {
        if (n.kind == Kind::Gate && pin >= 0)
            return RelayGateSymbol::pin(box(n), pin);
        return QPointF(box(n).left(), centre(n).y());
    }
    double line() const { return m_line; }
    double labelWidth() const { return m_labelWidth; }
    const QRectF& area() const { return m_area; }
    double left() const { return m_left; }
    double step() const { return m_step; }
    double top() const { return m_top; }

private:
    QRectF m_area;
    double m_line = 12.0;
    double m_labelWidth = 0.0;
    double m_left = 0.0;
    double m_step = 0.0;
    double m_top = 0.0;
    double m_rowHeight = 0.0;
    QSizeF m_gate;
};

void drawEdges(QPainter& painter, const Frame& frame, const RelayLogicTree& tree)
{
    for (const RelayLogicEdge& e : tree.edges) {
        const RelayLogicNode& from = tree.nodes.at(e.from);
        const RelayLogicNode& to = tree.nodes.at(e.to);
        painter.setPen(QPen(colour(from.state), 1.6));
        const QPointF a = frame.exit(from);
        const QPointF b = frame.entry(to, e.pin);
        // A short straight lead into a pin, so that an inversion ring sits on a level wire.
        const QPointF lead(b.x() - frame.line() * 0.8, b.y());
        painter.drawLine(a, lead);
        painter.drawLine(lead, b);
    }
}

void drawNode(QPainter& painter, const Frame& frame, const RelayLogicTree& tree,
              const RelayLogicNode& n)
{
    const QRectF box = frame.box(n);
    painter.setPen(QPen(colour(n.state), 1.6));
    painter.setBrush(fill(n.state));
    const QString mark = RelayLogicTexts::stateMark(n.state);
    switch (n.kind) {
    case Kind::Input: {
        painter.drawEllipse(box);
        painter.drawText(box, Qt::AlignCenter, mark);
        painter.setPen(Qt::black);
        const QRectF label(frame.area().left() + 6, box.top() - frame.line(), frame.labelWidth(),
                           box.height() + 2 * frame.line());
        painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(
                             RelayLogicTexts::label(n), Qt::ElideMiddle, int(frame.labelWidth())));
        break;
    }
    case Kind::Gate:
        RelayGateSymbol::draw(painter, box, n.gate);
        painter.drawText(RelayGateSymbol::labelBox(box, n.gate), Qt::AlignCenter,
                         RelayLogicTexts::label(n));
        painter.drawText(QRectF(box.right() - frame.line(), box.top() - frame.line() * 1.1,
                                frame.line() * 2, frame.line()),
                         Qt::AlignCenter, mark);
        break;
    case Kind::SetPath:
        painter.drawRoundedRect(box, 4, 4);
        painter.drawText(box, Qt::AlignCenter, RelayLogicTexts::label(n) + QLatin1Char(' ') + mark);
        break;
    case Kind::Delay: {
        painter.drawRect(box);
        // "Set Delay=2.0 Sec." on two lines: the name, then the time.
        const QString text = RelayLogicTexts::delay(n.number, n.seconds);
        painter.drawText(box, Qt::AlignCenter,
                         text.section(u'=', 0, 0) + QLatin1Char('\n') + text.section(u'=', 1) +
                             QLatin1Char(' ') + mark);
        break;
    }
    case Kind::Relay: {
        painter.drawRect(box);
        // A contact: open when the relay was set, closed at rest.
        const double y = box.center().y();
        const double x0 = box.left() + box.width() * 0.2;
        const double x1 = box.right() - box.width() * 0.2;
        painter.drawLine(QPointF(box.left(), y), QPointF(x0, y));
        painter.drawLine(QPointF(x1, y), QPointF(box.right(), y));
        const double lift = n.state == RelayNodeState::Active ? box.height() * 0.3 : 0.0;
        painter.drawLine(QPointF(x0, y), QPointF(x1, y - lift));
        painter.setPen(Qt::black);
        const double wide = frame.step() * 2;
        painter.drawText(QRectF(box.center().x() - wide / 2, box.top() - frame.line() * 1.3, wide,
                                frame.line() * 1.2),
                         Qt::AlignCenter, tree.relayName);
        painter.setPen(colour(n.state));
        painter.drawText(QRectF(box.center().x() - wide / 2, box.bottom() + frame.line() * 0.1,
                                wide, frame.line() * 1.2),
                         Qt::AlignCenter,
                         RelayLogicTexts::finalState(tree) + QStringLiteral(" ") + mark);
        break;
    }
    }
}

void drawHeadings(QPainter& painter, const Frame& frame, const RelayLogicTree& tree)
{
    const QRectF& area = frame.area();
    const double line = frame.line();
    painter.setPen(Qt::black);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.save();
    painter.setFont(bold);
    painter.drawText(QRectF(area.left() + 6, area.top() + 4, area.width() - 12, line * 1.2),
                     Qt::AlignLeft | Qt::AlignVCenter,
                     RelayLogicTexts::title(tree.deviceTypeId) + QStringLiteral(" - ") +
                         tree.moduleName + QStringLiteral(", ") + tree.relayName);
    painter.restore();
    const QRectF second(area.left() + 6, area.top() + 4 + line * 1.3, area.width() - 12,
                        line * 1.2);
    painter.drawText(second, Qt::AlignLeft | Qt::AlignVCenter, RelayLogicTexts::startHeading(tree));
    painter.drawText(second, Qt::AlignRight | Qt::AlignVCenter, RelayLogicTexts::endHeading(tree));
    // Column heads: the inputs, the gates, the delays and the relay.
    painter.setPen(Qt::darkGray);
    const double y = frame.top() - line * 1.4;
    auto head = [&](double x, const QString& text) {
        painter.drawText(QRectF(x - frame.step() / 2, y, frame.step(), line * 1.2), Qt::AlignCenter,
                         text);
    };
    head(frame.left(), userText("901040", "Inputs"));
    if (tree.columns > 4)
        head(frame.left() + frame.step() * (tree.columns - 4) / 2.0 + frame.step() / 2,
             userText("901041", "Gates"));
    head(frame.left() + frame.step() * (tree.columns - 2), userText("901042", "Delay"));
    head(frame.left() + frame.step() * (tree.columns - 1), userText("901015", "Relay"));
}

void drawLegend(QPainter& painter, const Frame& frame)
{
    const double line = frame.line();
    double x = frame.area().left() + 8;
    const double y = frame.area().bottom() - line * 1.6;
    const QList<std::pair<RelayNodeState, QString>> entries{
        {RelayNodeState::Active, userText("901043", "1 active")},
        {RelayNodeState::Inactive, userText("901044", "0 inactive")},
        {RelayNodeState::Unknown, userText("901045", "? unknown")}};
    for (const auto& [state, text] : entries) {
        painter.setPen(QPen(colour(state), 1.6));
        painter.setBrush(fill(state));
        painter.drawRect(QRectF(x, y + line * 0.2, line * 0.8, line * 0.8));
        painter.setPen(Qt::black);
        const double width = painter.fontMetrics().horizontalAdvance(text);
        painter.drawText(QRectF(x + line, y, width + 4, line * 1.2), Qt::AlignVCenter, text);
        x += line * 2 + width;
    }
}

} // namespace

void RelayLogicPicture::paint(QPainter& painter, const QRectF& area, const RelayLogicTree& tree)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const Frame frame(painter, area, tree);
    drawHeadings(painter, frame, tree);
    drawEdges(painter, frame, tree);
    for (const RelayLogicNode& n : tree.nodes)
        drawNode(painter, frame, tree, n);
    drawLegend(painter, frame);
    painter.restore();
}

} // namespace lorvane
