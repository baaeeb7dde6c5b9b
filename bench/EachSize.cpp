#include "EachSize.h"

#include "Apart.h"
#include "OffscreenDisplay.h"
#include "RawSession.h"
#include "data/Con.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/Boxes.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace Quillane {

namespace {

BoxAnswer Answer(const Box& box) {
    if (box.title != "Serial line")
        throw std::runtime_error(box.text);
    return BoxAnswer::Ok;
}

void MeasureHere(int argc, char** argv, const ManyArrivals& database,
                 const std::function<void(const ManyArrivals&)>& measure) {
    const OffscreenDisplay display;
    const Application application(argc, argv);
    SetBoxPresenter({.message = Answer, .input = {}});
    OpenCon(database);
    measure(database);
    Con.reset();
    SetBoxPresenter({});
}

} // namespace

int MeasureEachSize(int argc, char** argv,
                    const std::function<void(const ManyArrivals&)>& measure) {
    std::vector<int> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.push_back(std::atoi(argv[i]));
    if (sizes.empty())
        sizes = {10'000, 100'000, 1'000'000};
    for (const int arrivals : sizes) {
        const ManyArrivals database(arrivals);
        std::printf("\n== %d arrivals, %d in the searched year, %d parties\n", arrivals,
                    database.InSearchedYear(), ManyArrivals::PartyCount);
        if (!RunApart([&] { MeasureHere(argc, argv, database, measure); }))
            return 1;
    }
    return 0;
}

} // namespace Quillane
