#pragma once

#include "toolkit/dialog_rules.h"
