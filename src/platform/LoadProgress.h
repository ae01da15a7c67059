// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <atomic>
#include <optional>

namespace lorvane {

/// What long work tells its watcher, and how it learns that the user cancelled: a line of
/// text, how far it is (a fraction from 0 to 1, or unknown), and a cancel flag that any
/// thread may raise. The wait window implements it; the command line and the tests pass
/// their own. Work that knows its total (days of a range, captures of a list, steps of the
/// upgrade ladder) reports a fraction; work of unknown length reports none and the watcher
/// shows that it goes on.
class LoadProgress
{
public:
    virtual ~LoadProgress() = default;

    /// A line of progress text ("Searching data for device ...").
    virtual void status(const QString& text) = 0;
    /// `done` of `total` units are done; a total of 0 or less means the length is unknown.
    void advance(qint64 done, qint64 total) { setFraction(fractionOf(done, total)); }
    /// The share done, kept within 0 to 1; none when the length of the work is not known.
    void setFraction(std::optional<double> fraction);

    /// Asked at each day, hour or block step; lets the watcher serve its events first (a
    /// click on its cancel button gets through there). True ends the work with what was
    /// done so far.
    bool cancelRequested()
    {
        serve();
        return m_cancel.load(std::memory_order_acquire);
    }
    /// Asks the work to stop at its next step; safe from any thread.
    void requestCancel() { m_cancel.store(true, std::memory_order_release); }
    /// The cancel flag, read without serving the watcher.
    bool cancelPending() const { return m_cancel.load(std::memory_order_acquire); }

    /// `done` of `total` as a share from 0 to 1; none when `total` is 0 or less.
    static std::optional<double> fractionOf(qint64 done, qint64 total);

protected:
    /// The share done (0 to 1), or none for work of unknown length.
    virtual void showFraction(std::optional<double> fraction) { (void)fraction; }
    /// Serves the watcher's events at a step; nothing by default.
    virtual void serve() {}
    /// A watcher that serves one operation after another lowers the flag for the next.
    void clearCancel() { m_cancel.store(false, std::memory_order_release); }

private:
    std::atomic<bool> m_cancel{false};
};

/// Progress that goes nowhere and is cancelled only when someone asks.
class SilentProgress : public LoadProgress
{
public:
    void status(const QString&) override {}
};

/// One stretch of a larger piece of work: its text and cancel go to the whole, its fraction
/// is placed between `from` and `to` of the whole's (one step of a ladder, one file of a list).
class ProgressShare : public LoadProgress
{
public:
    ProgressShare(LoadProgress& whole, double from, double to)
        : m_whole(whole), m_from(from), m_to(to)
    {
    }
    void status(const QString& text) override { m_whole.status(text); }

protected:
    void showFraction(std::optional<double> fraction) override;
    void serve() override;

private:
    LoadProgress& m_whole;
    double m_from;
    double m_to;
};

} // namespace lorvane
