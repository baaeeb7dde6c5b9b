#pragma once

#include <QTemporaryDir>

#include <cstdint>
#include <string>

namespace Quillane {

/// The embedded database of a mill after years of use, in a temporary folder: arrivals numbered
/// from 1 on and spread evenly over nine years, so that 11 of 100 are within the last 365 days;
/// three body lines each; 5,000 parties in 40 cities.
class ManyArrivals {
public:
    explicit ManyArrivals(int arrivals);

    std::string Folder() const { return folder_.path().toStdString(); }
    int Arrivals() const { return arrivals_; }
    /// The number of arrivals between the default dates of the search, inclusive.
    int InSearchedYear() const { return inSearchedYear_; }

    /// The connection string, for an embedded support with the folder `Folder()`.
    static constexpr const char* ConnectionText =
        "Driver=SQL Server;Server=(embedded);Database=Account1";
    static constexpr int PartyCount = 5000;
    static constexpr int LinesEach = 3;

private:
    QTemporaryDir folder_;
    int arrivals_;
    int inSearchedYear_ = 0;
};

} // namespace Quillane
