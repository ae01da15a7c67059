// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/AboutInfo.h"

#include <QDialog>

class QLabel;

namespace lorvane {

/// "About QLM Lorvane": the program's version and the files and versions it runs with.
class AboutLorvane : public QDialog
{
    Q_OBJECT

public:
    /// Shows the lines of `info`.
    explicit AboutLorvane(const AboutInfo& info, QWidget* parent = nullptr);

    /// The lines as shown.
    QStringList lines() const;

private:
    QList<QLabel*> m_lines;
};

} // namespace lorvane
