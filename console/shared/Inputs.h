#pragma once

// Every kind of input that a page can add.
#include "shared/BoxesInput.h"
#include "shared/ChecksInput.h"
#include "shared/ChoiceInput.h"
#include "shared/TextInput.h"
