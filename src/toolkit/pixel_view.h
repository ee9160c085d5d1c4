#pragma once

#include "toolkit/bitmap.h"
