#pragma once

// Reference tables kept as text under tests/data/reference: one row a line,
// numbers separated by blanks, lines starting with '#' are comments (the first
// of them the command that produced the values). A missing file, a row of the
// wrong width or an unreadable number fails the test program, and an empty
// table fails every check that walks it.

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/ReferenceCheck.h"

// The rows of tests/data/reference/<name>, each of exactly `columns` numbers.
inline std::vector<std::vector<double>> GxReadReferenceRows(const std::string& name,
                                                            std::size_t columns) {
    const std::string path = std::string(GXCART_TEST_DATA) + "/reference/" + name;
    std::ifstream in(path);
    if (!in) ADD_FAILURE() << "cannot read " << path;
    std::vector<std::vector<double>> rows;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') continue;
        std::istringstream fields(line);
        fields.imbue(std::locale::classic());
        std::vector<double> row;
        for (double value; fields >> value;) row.push_back(value);
        if (!fields.eof() || row.size() != columns) {
            ADD_FAILURE() << path << ":" << number << ": not " << columns << " numbers";
            continue;
        }
        rows.push_back(row);
    }
    if (rows.empty()) ADD_FAILURE() << path << " holds no rows";
    return rows;
}

// A table of longitude, latitude, easting, northing.
inline std::vector<GxReferencePoint> GxReadReferencePoints(const std::string& name) {
    std::vector<GxReferencePoint> points;
    for (const std::vector<double>& r : GxReadReferenceRows(name, 4))
        points.push_back({r[0], r[1], r[2], r[3]});
    return points;
}

// Every row of a table read from a file, all to the table's tolerance.
inline void GxExpectReferenceTable(const CGxProjection& p,
                                   const std::vector<GxReferencePoint>& rows,
                                   const GxReferenceTolerance& tolerance) {
    ASSERT_FALSE(rows.empty());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "table row " << i);
        GxExpectReferencePoint(p, rows[i], tolerance);
    }
}
