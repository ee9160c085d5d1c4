#pragma once

#include "toolkit/control.h"
