#include "files/configfile.h"
