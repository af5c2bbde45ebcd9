// report: what comparing two rooms costs, with every row in words as "What Differs" shows it.

#include "measuring.h"
#include "report/differences.h"

#include <cstdio>

using namespace kelvo;

namespace {

/// Every setting of both records one step apart.
RoomSettings AllMoved(RoomSettings room)
{
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place == Place::Audio || field.place == Place::System)
            Set(room, id, Get(room, id) + 1);
    });
    return room;
}

double MicrosecondsToCompare(const Side &left, const Side &right, std::size_t expectedRows)
{
    const int runs = FullOrBrief(50'000, 100);
    std::size_t rows = 0;
    const double start = CpuMilliseconds();
    for (int run = 0; run < runs; ++run)
        rows += DifferencesOf(left, right).rows.size();
    const double took = (CpuMilliseconds() - start) * 1e3 / runs;
    return rows == std::size_t(runs) * expectedRows ? took : -1;
}

} // namespace

int main()
{
    RoomSettings room;
    ResetAll(room);
    RoomSettings tuned = room;
    for (int band = 0; band < BandCount; ++band)
        Set(tuned, field::Band(Center, band), 5);
    const double channel = MicrosecondsToCompare(WholeRoom(room), WholeRoom(tuned), BandCount);
    const double all = MicrosecondsToCompare(WholeRoom(room), WholeRoom(AllMoved(room)), 129);
    std::printf("report: compare two rooms, 27 rows %.1f us (goal < 20), all 129 rows %.1f us\n", channel,
                all);
    return channel > 0 && all > 0 ? 0 : 1;
}
