// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "powergraph/PGraphModule.h"

#include <QDialog>
#include <array>

class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QSlider;

namespace lorvane {

/// "Color Assignments": the eight colours of each chart kind (entries "1" to "6",
/// "Foreground", "Background") set with the sliders R, G and B, shown at once in the sample
/// box. "&Apply" stores without closing, "&OK" stores and closes, "&Restore" brings back the
/// delivered colours of the kind shown (stored with the next "&Apply" or "&OK").
class PGSelColor : public QDialog
{
    Q_OBJECT

public:
    explicit PGSelColor(QString settingsFile, QWidget* parent = nullptr);

    void setKind(PGraphView::Kind kind);
    /// The colours as set in the dialog (not yet stored).
    const PowerGraphDefaults& defaults() const { return m_defaults; }

    QComboBox* kindBox() const { return m_kind; }
    QListWidget* entryList() const { return m_entries; }
    QSlider* slider(int component) const { return m_sliders.at(size_t(component)); }
    /// "&Apply": false after telling why the file could not be written.
    bool apply();
    /// "&Restore".
    void restore();

signals:
    void helpRequested(const QString& topic);

private:
    PGraphView::Kind kind() const;
    PGraphColor& current();
    void showEntry();
    void sliderMoved();

    QString m_settingsFile;
    PowerGraphDefaults m_defaults;
    QComboBox* m_kind = nullptr;
    QListWidget* m_entries = nullptr;
    std::array<QSlider*, 3> m_sliders{};
    std::array<QLabel*, 3> m_values{};
    QFrame* m_sample = nullptr;
};

} // namespace lorvane
