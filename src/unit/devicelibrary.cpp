#include "unit/devicelibrary.h"

#include <bit>

namespace kelvo {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::steady_clock;

Status DeviceLibrary::Do(const Call &call)
{
    if (observers_.empty())
        return Perform(call);
    for (CallObserver *observer : observers_)
        observer->Before(call);
    const steady_clock::time_point start = steady_clock::now();
    const Status status = Perform(call);
    const auto taken = duration_cast<microseconds>(steady_clock::now() - start);
    for (CallObserver *observer : observers_)
        observer->After(call, status, taken);
    return status;
}

Status DeviceLibrary::GetUnitVersion(UnitVersion &version)
{
    auto words = std::bit_cast<std::array<Word, VersionWords>>(version);
    const Status status = Do<Operation::GetUnitVersion>({.wordsOut = words});
    version = std::bit_cast<UnitVersion>(words);
    return status;
}

} // namespace kelvo
