// The host's popup menu.
#pragma once

#include "host/RcBase.h"

/// It gets its operations with the first column that has a menu.
class IMenuItems : public IRefItem {};
