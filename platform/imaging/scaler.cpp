#include "platform/imaging/scaler.h"
