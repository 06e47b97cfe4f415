#pragma once

// Every kind of input that a page can add.
#include "framework/input/AddressInput.h"
#include "framework/input/ChecksInput.h"
#include "framework/input/ChoiceInput.h"
#include "framework/input/DateInput.h"
#include "framework/input/MaskedAddressInput.h"
#include "framework/input/NumberInput.h"
#include "framework/input/PasswordInput.h"
#include "framework/input/PortInput.h"
#include "framework/input/TextInput.h"
#include "framework/input/TimeInput.h"
