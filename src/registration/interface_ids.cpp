// Defines the LIBID, IIDs and CLSIDs that the generated header declares.
#include <initguid.h>

#include "registration/CorvidAPI_h.h"
