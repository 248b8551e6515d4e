// Where a command's results go.
#pragma once

#include <persistence/Output.h>
