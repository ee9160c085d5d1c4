#pragma once

#include "toolkit/picture.h"
