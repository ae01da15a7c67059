// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace lorvane {

/// The fixed texts of the trend window and its session, each through the string catalogue.
class TrendTexts
{
public:
    static QString mainViewName();
    static QString msViewName();
    static QString noDataInput();
    static QString noPointsLoaded();
    static QString tooManyBarPoints();
    static QString noNextPoint();
    static QString noPreviousPoint();
    static QString noMsPoints();
    /// "Are you sure you want to close the current view (MSec View)?"
    static QString closeViewQuestion(const QString& viewName);
    /// "Seconds from " + the start as the clock reads.
    static QString secondsFrom(const QString& startText);
    static QString allDataSets();
    static QString focusOnDataSet();
    static QString printTitle();
    /// The range check of a request: an end not after the start, a range beyond what a trend
    /// holds.
    static QString zeroSizedRange();
    static QString rangeTooLarge();
};

} // namespace lorvane
