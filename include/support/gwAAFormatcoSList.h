#pragma once

#include "coSList.h"
#include "gwAAFormat.h"

using gwAAFormatcoSList = coSList<gwAAFormat>;
