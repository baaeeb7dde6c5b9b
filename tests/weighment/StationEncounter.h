#pragma once

#include "weighment/StationProcess.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <random>
#include <vector>

namespace Quillane::Testing {

/// Runs stations on one database until all have ended. A question of one of them is answered only
/// after the others have done a few more actions, so that these happen between its reading and its
/// writing.
class StationEncounter {
public:
    StationEncounter(std::vector<Station*> stations, unsigned seed) : chance_(seed) {
        for (Station* station : stations)
            sides_.push_back({station});
    }

    /// Kills the station, like a power failure, after it has written this number of lines.
    void KillAfterLine(const Station& station, int line) { SideOf(station).lineOfDeath = line; }

    void Play() {
        for (Side& side : sides_)
            side.station->Go();
        while (!AllHaveEnded()) {
            bool heard = false;
            for (Side& side : sides_)
                heard = Hear(side) || heard;
            AnswerWhatIsDue();
            if (!heard && !AllHaveEnded())
                WaitForALine();
        }
    }

private:
    struct Side {
        Station* station;
        int lineOfDeath = 0; ///< none
        int lines = 0;
        bool asks = false;
        int actsToWaitFor = 0; ///< of the others
    };

    Side& SideOf(const Station& station) {
        return *std::find_if(sides_.begin(), sides_.end(),
                             [&](const Side& side) { return side.station == &station; });
    }
    bool AllHaveEnded() const {
        return std::all_of(sides_.begin(), sides_.end(),
                           [](const Side& side) { return side.station->HasEnded(); });
    }

    bool Hear(Side& side) {
        if (!side.station->HasLine())
            return false;
        const std::string kind = side.station->TakeDown(side.station->NextLine());
        if (kind == "asks") {
            side.asks = true;
            side.actsToWaitFor = static_cast<int>(chance_() % 5);
        } else if (kind == "saved" || kind == "removed") {
            for (Side& other : sides_)
                --other.actsToWaitFor;
        }
        if (++side.lines == side.lineOfDeath)
            side.station->Kill();
        return true;
    }

    /// If no other station is active any more, the first waiting one gets its answer.
    void AnswerWhatIsDue() {
        const bool nobodyWorks = std::all_of(sides_.begin(), sides_.end(), [](const Side& side) {
            return side.asks || side.station->HasEnded();
        });
        bool isFirst = true;
        for (Side& side : sides_) {
            if (!side.asks || side.station->HasEnded())
                continue;
            if (side.actsToWaitFor <= 0 || (nobodyWorks && isFirst)) {
                side.asks = false;
                side.station->AnswerYes();
            }
            isFirst = false;
        }
    }

    void WaitForALine() {
        QEventLoop loop;
        QTimer patience;
        patience.setSingleShot(true);
        bool isLate = false;
        QObject::connect(&patience, &QTimer::timeout, &loop, [&] {
            isLate = true;
            loop.quit();
        });
        for (Side& side : sides_) {
            QProcess& process = side.station->Process();
            QObject::connect(&process, &QProcess::readyRead, &loop, &QEventLoop::quit);
            QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
        }
        patience.start(Station::Patience);
        loop.exec();
        if (!isLate)
            return;
        ADD_FAILURE() << "no station has written another line";
        for (Side& side : sides_)
            side.station->Kill();
    }

    std::mt19937 chance_;
    std::vector<Side> sides_;
};

} // namespace Quillane::Testing
