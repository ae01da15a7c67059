// SPDX-License-Identifier: GPL-3.0-or-later
#include "CBEMAGraph_Ex1.h"

#include "PqBarsPage.h"
#include "PqHistogramPage.h"
#include "PqScatterPage.h"
#include "graph/ui/GraphOutput.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"
#include "platform/UserMessages.h"
#include "platform/UserText.h"
#include "platform/WorkGuard.h"
#include "pqgraph/PqGraphTexts.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace lorvane {

CBEMAGraph_Ex1::CBEMAGraph_Ex1(SqliteDatabase& scratch, WorkGuard& work, QWidget* parent)
    : QWidget(parent), m_scratch(scratch), m_work(work), m_combo(new QComboBox),
      m_pages(new QStackedWidget), m_scatter(new PqScatterPage(m_session)), m_bars(new PqBarsPage),
      m_histogram(new PqHistogramPage)
{
    setObjectName(QStringLiteral("CBEMAGraph_Ex1"));
    m_combo->setObjectName(QStringLiteral("Combo1"));
    m_combo->addItems(PqGraphTexts::pageNames());
    m_pages->addWidget(m_scatter);
    m_pages->addWidget(m_bars);
    m_pages->addWidget(m_histogram);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_combo);
    buttons->addStretch(1);
    const std::pair<const char*, const char*> names[] = {
        {"601040", "&Help"}, {"601041", "&Cancel"}, {"601042", "&Print"}, {"601043", "C&opy"}};
    QList<QPushButton*> pressed;
    for (const auto& [id, text] : names) {
        auto* button = new QPushButton(userText(id, text));
        buttons->addWidget(button);
        pressed << button;
    }
    connect(pressed[0], &QPushButton::clicked, this,
            [this] { emit helpRequested(QString::fromLatin1(helpTopic)); });
    connect(pressed[1], &QPushButton::clicked, this, [this] {
        // In the frame the window sits in a child window, which goes with it.
        auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
        frame ? frame->close() : close();
    });
    connect(pressed[2], &QPushButton::clicked, this, &CBEMAGraph_Ex1::print);
    connect(pressed[3], &QPushButton::clicked, this, &CBEMAGraph_Ex1::copy);
    connect(m_combo, &QComboBox::activated, this, &CBEMAGraph_Ex1::showPage);
    connect(m_scatter, &PqScatterPage::eventActivated, this, [this](int channel, qsizetype index) {
        guarded([&] {
            const PqEvent& event = m_session.events().at(channel).at(index);
            if (const std::optional<qint64> capture = m_session.captureOf(event))
                emit captureRequested(m_numbers, *capture);
        });
    });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_pages, 1);
    setWindowTitle(PqGraphTexts::title2d());
    resize(1100, 760);
}

CBEMAGraph_Ex1::~CBEMAGraph_Ex1() = default;

void CBEMAGraph_Ex1::setEnvelopeSetting(std::function<EnvelopeSetting()> setting)
{
    m_setting = std::move(setting);
}

void CBEMAGraph_Ex1::setFileChooser(std::function<QString(const QString&)> chooser)
{
    m_chooseFile = std::move(chooser);
}

void CBEMAGraph_Ex1::guarded(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Fault& fault) {
        userMessages().show(fault.message(), UserMessages::Icon::Critical, windowTitle());
    } catch (const StorageError& error) {
        userMessages().show(userText("601046", "The query tables could not be read") +
                                QStringLiteral(": ") + error.detail(),
                            UserMessages::Icon::Critical, windowTitle());
    } catch (const std::exception& error) {
        userMessages().show(QString::fromLocal8Bit(error.what()), UserMessages::Icon::Critical,
                            windowTitle());
    }
}

bool CBEMAGraph_Ex1::open(const QueryNumbers& numbers)
{
    WorkGuard::Scope scope = m_work.enter();
    if (!scope)
        return false;
    bool loaded = false;
    guarded([&] {
        m_session.load(m_scratch, numbers, nullptr);
        m_numbers = numbers;
        m_lastMessage.clear();
        m_combo->setCurrentIndex(Graph2d);
        showPage(Graph2d);
        loaded = true;
    });
    return loaded;
}

void CBEMAGraph_Ex1::drawEnvelope(bool tell)
{
    const EnvelopeSetting setting = m_setting ? m_setting() : EnvelopeSetting{};
    const QString message = m_session.chooseEnvelope(setting.useCbema, setting.file);
    // The reason is told once; a redraw with the same refusal keeps quiet.
    if (tell && !message.isEmpty() && message != m_lastMessage)
        userMessages().show(message, UserMessages::Icon::Information, windowTitle());
    m_lastMessage = message;
}

void CBEMAGraph_Ex1::showPage(int page)
{
    guarded([&] {
        m_combo->setCurrentIndex(page);
        m_pages->setCurrentIndex(page);
        switch (page) {
        case Graph2d:
            drawEnvelope(true);
            m_scatter->redraw();
            break;
        case Graph3d:
            m_bars->setCounts(m_session.counts());
            break;
        case Histogram:
            m_histogram->setSums(m_session.sums());
            break;
        default:
            break;
        }
    });
}

int CBEMAGraph_Ex1::page() const
{
    return m_pages->currentIndex();
}

QWidget* CBEMAGraph_Ex1::currentPage() const
{
    return m_pages->currentWidget();
}

void CBEMAGraph_Ex1::print()
{
    guarded([&] { GraphOutput::printWithPreview(currentPage(), this); });
}

void CBEMAGraph_Ex1::copy()
{
    guarded([&] {
        GraphOutput::copyToClipboard(currentPage());
        const QString suggested = QStringLiteral("PQ%1.png").arg(m_numbers.query);
        const QString path =
            m_chooseFile ? m_chooseFile(suggested)
                         : QFileDialog::getSaveFileName(
                               this, PqGraphTexts::title2d() + userText("601044", " Graph"),
                               suggested, QStringLiteral("PNG (*.png);;SVG (*.svg);;PDF (*.pdf)"));
        if (path.isEmpty())
            return;
        if (!GraphOutput::save(currentPage(), path, PqGraphTexts::title2d()))
            userMessages().show(userText("601045", "Cannot write the picture file ") +
                                    QDir::toNativeSeparators(path) + QLatin1Char('.'),
                                UserMessages::Icon::Warning, windowTitle());
    });
}

} // namespace lorvane
