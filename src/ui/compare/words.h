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
/// What could not be read, in the place of %1.
QString UnreadText(const char *text, const std::vector<UnitOp> &unread);

} // namespace kelvo
