// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <utility>

namespace lorvane {

/// One column of a status log grid: its heading and the statement expression of its cell.
struct GridColumn
{
    enum class Form
    {
        Value,  ///< the value as it stands
        Number, ///< a measured value, in the grid's number format (the `DataFormat` setting)
        Stamp,  ///< `expression` a stored stamp, `fraction` its thousandths
        Device, ///< `expression` a device index, shown as the meter's name
    };
    GridColumn(QString heading_, QString expression_, Form form_ = Form::Value,
               QString fraction_ = {})
        : heading(std::move(heading_)), expression(std::move(expression_)), form(form_),
          fraction(std::move(fraction_))
    {
    }

    QString heading;
    QString expression;
    Form form = Form::Value;
    QString fraction;
};

} // namespace lorvane
