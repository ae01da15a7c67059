// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace lorvane {

/// The logs of a Device Master Log (`*.dml`): which of the 17 log databases beside the marker
/// file exist, and the path of the one the user picks. The marker file itself is never read.
class DeviceMasterLog
{
public:
    static constexpr int logCount = 17;

    enum class Status : int
    {
        NotAvailable = 0,
        NoLogData = 1,
        Available = 2,
    };

    struct Row
    {
        QString displayName;
        QString logName;
        Status status = Status::NotAvailable;
    };

    struct SplitPath
    {
        QString folder;
        QString name;
    };

    /// `split_file_path`: cut at the last `\`, else at the last `/`; a path with neither has
    /// the folder ".".
    static SplitPath split_file_path(const QString& path);
    /// Display name of row `index` (0 to 16); "None" outside.
    static QString displayName(int index);
    /// "Not Available", "No Log Data" or "Available".
    static QString statusText(Status status);

    /// `init`: the rows for the `.dml` at `dmlPath`. A log whose folder `logs/{LOGNAME}`
    /// exists is "Available" when its database opens, else "No Log Data"; the others stay
    /// "Not Available". Never throws.
    void init(const QString& dmlPath);
    const QList<Row>& rows() const { return m_rows; }
    const QString& folder() const { return m_folder; }

    /// The label for row `index`: its display name, or "No Log Selected" outside the table.
    static QString selectedLabel(int index);
    /// The database of row `index`, `{dir}/logs/{LOGNAME}/{LOGNAME}.db`; empty outside the
    /// table (a cancelled choice).
    QString selectedPath(int index) const;

private:
    QString m_folder;
    QList<Row> m_rows;
};

} // namespace lorvane
