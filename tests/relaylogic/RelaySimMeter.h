// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A recorder meter (device type 4, the form with 44 logic inputs) written by lorvane-sim, its
// relay log loaded into a scratch database through the relay view as the log grid does it.
#include "platform/LoadProgress.h"
#include "query/engine/QueryContext.h"
#include "query/views/relay/RelayView.h"
#include "store/StampedTime.h"
#include "store/TempQueryDatabase.h"
#include "support/TestMeters.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <memory>

namespace lorvane::test {

struct RelaySimMeter
{
    QTemporaryDir dir;
    std::unique_ptr<TempQueryDatabase> scratch;
    SilentProgress progress;
    QString meterFile;
    ViewResult view;

    explicit RelaySimMeter(const char* kind = "recorder", int deviceTypeId = 4)
    {
        scratch = scratchDatabase(dir, 4717);
        meterFile = dir.filePath(QStringLiteral("Feeder.DB"));
        simulate(QStringList{QStringLiteral("--out"), meterFile, QStringLiteral("--kind"),
                             QString::fromLatin1(kind), QStringLiteral("--hardware-name"),
                             QStringLiteral("Feeder")} +
                 smallMeterArguments());
        QueryContext c;
        c.scratch = scratch.get();
        c.progress = &progress;
        LogFileEntry e;
        e.dbPath = meterFile;
        e.deviceTypeId = deviceTypeId;
        e.hardwareName = QStringLiteral("Feeder");
        e.used = true;
        e.deviceIndex = 0;
        c.files << e;
        c.start = StampedTime::parseClock(QStringLiteral("2024-03-04 00:00:00"));
        c.end = StampedTime::parseClock(QStringLiteral("2024-03-05 23:59:59"));
        view = RelayView::run(c);
    }

    const GridTable& relays() const { return view.grids.first(); }
    /// Grid position of the first row of relay `name` triggered at `clock` (`HH:MM`), -1 none.
    int row(const QString& name, const QString& clock) const
    {
        const GridTable& g = relays();
        const int nameColumn = int(g.columns.indexOf(QStringLiteral("Relay Name")));
        for (int r = 0; r < g.rows.size(); ++r)
            if (g.rows.at(r).at(nameColumn) == name && g.rows.at(r).first().contains(clock))
                return r;
        return -1;
    }
};

} // namespace lorvane::test
