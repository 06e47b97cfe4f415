#pragma once

// Every kind of input that a page can add.
#include "shared/input/AddressInput.h"
#include "shared/input/ChecksInput.h"
#include "shared/input/ChoiceInput.h"
#include "shared/input/DateInput.h"
#include "shared/input/MaskedAddressInput.h"
#include "shared/input/NumberInput.h"
#include "shared/input/PasswordInput.h"
#include "shared/input/PortInput.h"
#include "shared/input/TextInput.h"
#include "shared/input/TimeInput.h"
