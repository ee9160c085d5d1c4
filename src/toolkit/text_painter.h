#pragma once

#include "toolkit/platform.h"
