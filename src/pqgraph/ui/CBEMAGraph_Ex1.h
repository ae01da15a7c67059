// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pqgraph/PqGraphSession.h"

#include <QWidget>
#include <functional>

class QComboBox;
class QStackedWidget;

namespace lorvane {

class PqBarsPage;
class PqHistogramPage;
class PqScatterPage;
class SqliteDatabase;
class WorkGuard;

/// The power quality graph of a PQ query: the events on the magnitude/duration plane against
/// the envelope, the count matrix in 3D and the magnitude histogram, one page at a time as
/// `Combo1` chooses. The numbers come from its `PqGraphSession`; the window holds the pages
/// and the buttons "&Help", "&Cancel", "&Print", "C&opy".
class CBEMAGraph_Ex1 : public QWidget
{
    Q_OBJECT

public:
    enum Page
    {
        Graph2d = 0,
        Graph3d = 1,
        Histogram = 2,
    };
    /// The envelope setting at the time of a draw: whether to keep the built-in curve, and the
    /// boundary line file.
    struct EnvelopeSetting
    {
        bool useCbema = true;
        QString file;
    };

    static constexpr const char* helpTopic = "LRPQGraph";

    /// A window over the query tables of `scratch`, its load entering `work` (both must
    /// outlive it).
    CBEMAGraph_Ex1(SqliteDatabase& scratch, WorkGuard& work, QWidget* parent = nullptr);
    ~CBEMAGraph_Ex1() override;

    /// Where the envelope setting is read at each draw (the run's settings).
    void setEnvelopeSetting(std::function<EnvelopeSetting()> setting);
    /// Where Copy asks for the picture file it offers (default: a file dialog); an empty
    /// answer writes none.
    void setFileChooser(std::function<QString(const QString& suggested)> chooser);

    /// Reads the events of query `numbers` and draws the 2D page. False, with the reason
    /// shown, when it cannot be read; false and nothing shown while other work runs.
    bool open(const QueryNumbers& numbers);
    /// Draws the page of `Combo1` index `page`, choosing the envelope afresh.
    void showPage(int page);
    int page() const;
    /// The page shown, as Print and Copy draw it.
    QWidget* currentPage() const;
    const PqGraphSession& session() const { return m_session; }
    PqScatterPage* scatterPage() const { return m_scatter; }
    PqBarsPage* barsPage() const { return m_bars; }
    PqHistogramPage* histogramPage() const { return m_histogram; }

    void print();
    /// Puts the page on the clipboard and offers it as a PNG, SVG or PDF file.
    void copy();

signals:
    void helpRequested(const QString& topic);
    /// The user double-clicked an event whose capture the query holds (its `RecCounter` in
    /// the query's waveform table).
    void captureRequested(const lorvane::QueryNumbers& numbers, qint64 captureRecCounter);

private:
    /// Runs `action`, showing any failure through UserMessages.
    void guarded(const std::function<void()>& action);
    void drawEnvelope(bool tell);

    SqliteDatabase& m_scratch;
    WorkGuard& m_work;
    PqGraphSession m_session;
    QueryNumbers m_numbers;
    std::function<EnvelopeSetting()> m_setting;
    std::function<QString(const QString&)> m_chooseFile;
    QString m_lastMessage;
    QComboBox* m_combo = nullptr;
    QStackedWidget* m_pages = nullptr;
    PqScatterPage* m_scatter = nullptr;
    PqBarsPage* m_bars = nullptr;
    PqHistogramPage* m_histogram = nullptr;
};

} // namespace lorvane
