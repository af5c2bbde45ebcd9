#include "unit/operations.h"

namespace kelvo {

static_assert(
    [] {
        for (std::size_t row = 0; row < Operations.size(); ++row)
            if (Operations[row].operation != Operation(row))
                return false;
        return true;
    }(),
    "the rows stand in the order of the operations, without a gap");

std::optional<Operation> OperationNamed(std::string_view name)
{
    for (const OperationRow &row : Operations)
        if (row.name == name)
            return row.operation;
    return std::nullopt;
}

} // namespace kelvo
