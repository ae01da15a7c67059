// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "waveform/WaveformProperties.h"

#include <QDialog>

class QTableWidget;

namespace lorvane {

/// "Waveform Properties": what is known of the open capture, as name and value rows.
class WavePropertyFrm : public QDialog
{
    Q_OBJECT

public:
    /// `hookupPicture` is the file of the wiring's drawing shown beside the "Hookup" row; empty
    /// or missing shows the text alone.
    explicit WavePropertyFrm(const QList<WaveformProperties::Row>& rows,
                             const QString& hookupPicture = QString(), QWidget* parent = nullptr);

    QTableWidget* table() const { return m_table; }
    /// C&opy: the rows to the clipboard.
    void copy() const;

signals:
    void helpRequested(const QString& topic);

private:
    QList<WaveformProperties::Row> m_rows;
    QTableWidget* m_table;
};

} // namespace lorvane
