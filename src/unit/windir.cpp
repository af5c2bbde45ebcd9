#include "unit/windir.h"

#include "files/systempath.h"

namespace kelvo {

bool SerialIniMissing()
{
    return !Exists(GetWinDir() + "/kelvoserial.ini");
}

} // namespace kelvo
