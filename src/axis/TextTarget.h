#pragma once
// A control whose text a rule may set directly: a text box or a result label.
#include "core/TextTarget.h"
