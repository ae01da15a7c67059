// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QLineEdit;

namespace lorvane {

/// "Graph Labels": the two lines of the comment block printed with each power graph.
/// "&OK" stores them, "&Restore" empties both.
class PGSelLabel : public QDialog
{
    Q_OBJECT

public:
    explicit PGSelLabel(QString settingsFile, QWidget* parent = nullptr);

    QLineEdit* line(int index) const { return index == 0 ? m_line1 : m_line2; }
    /// "&OK": false after telling why the file could not be written.
    bool store();
    /// "&Restore".
    void restore();

signals:
    void helpRequested(const QString& topic);

private:
    QString m_settingsFile;
    QLineEdit* m_line1 = nullptr;
    QLineEdit* m_line2 = nullptr;
};

} // namespace lorvane
