#pragma once

#include <QTemporaryDir>

#include <cstdint>
#include <string>

namespace Quillane {

/// The embedded database of a mill that has used the station for years, in a folder that goes with
/// it: arrivals numbered from 1 on and spread evenly over nine years, so that 11 of 100 lie within
/// the last 365 days; three body lines for each; 5,000 parties in 40 cities.
class ManyArrivals {
public:
    explicit ManyArrivals(int arrivals);

    std::string Folder() const { return folder_.path().toStdString(); }
    int Arrivals() const { return arrivals_; }
    /// How many lie between the default dates of the search, both included.
    int InSearchedYear() const { return inSearchedYear_; }

    /// What a connection is opened with, given a support whose folder is `Folder()`.
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
