// SPDX-License-Identifier: GPL-3.0-or-later
#include "TrendTexts.h"

#include "platform/UserText.h"

namespace lorvane {

QString TrendTexts::mainViewName()
{
    return userText("701001", "Main Graph");
}

QString TrendTexts::msViewName()
{
    return userText("701002", "MSec View");
}

QString TrendTexts::noDataInput()
{
    return userText("701003", "No Data Input");
}

QString TrendTexts::noPointsLoaded()
{
    return userText("701004", "No Points Loaded.");
}

QString TrendTexts::tooManyBarPoints()
{
    return userText("701005", "Too many data points to use bar graph ( > 2000)");
}

QString TrendTexts::noNextPoint()
{
    return userText("701006", "No Next Point.");
}

QString TrendTexts::noPreviousPoint()
{
    return userText("701007", "No Previous Point.");
}

QString TrendTexts::noMsPoints()
{
    return userText("701008", "No Points Selected, or invalid Time Range");
}

QString TrendTexts::closeViewQuestion(const QString& viewName)
{
    return userText("701009", "Are you sure you want to close the current view") +
           QStringLiteral(" (") + viewName + QStringLiteral(")?");
}

QString TrendTexts::secondsFrom(const QString& startText)
{
    return userText("701010", "Seconds from ") + startText;
}

QString TrendTexts::allDataSets()
{
    return userText("701011", "All Data Sets");
}

QString TrendTexts::focusOnDataSet()
{
    return userText("701012", "Focus On Data Set");
}

QString TrendTexts::printTitle()
{
    return userText("701013", "Lorvane Graph");
}

QString TrendTexts::zeroSizedRange()
{
    return userText("701014", "  0 sized date range.");
}

QString TrendTexts::rangeTooLarge()
{
    return userText("701015", "  Date range too large.");
}

} // namespace lorvane
