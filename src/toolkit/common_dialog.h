#pragma once

#include "toolkit/dialogs.h"
