#pragma once

// The labelled parameter values of a definition in index order, so that a
// definition compares with a table, or with another definition, in one
// expression.

#include <string>
#include <vector>

#include "definitions/MapProjData.h"

inline std::vector<double> GxParameterValues(const CGxMapProjData& d) {
    std::vector<double> values;
    for (int i = 0; i < d.GetNoOfParameters(); ++i) {
        std::string label;
        double value = 0;
        CGxMapProjData::EParamType kind;
        d.GetParameter(i, label, value, kind);
        values.push_back(value);
    }
    return values;
}
