#pragma once

#include "report/differences.h"
#include "unit/unitop.h"

#include <QString>

#include <vector>

namespace kelvo {

/// "12 settings differ, 2 live values, 3 other bytes", or "No difference".
QString DiffersText(const Differences &found);
/// What Verify found.
QString VerifyText(const Differences &found);
/// What Verify could not read.
QString NotVerifiedText(const std::vector<UnitOp> &unread);

} // namespace kelvo
