#pragma once

#include "toolkit/nonvisual_controls.h"
