// Shared helpers of Skelda's tests: see the headers beside this file.
#include "TestMain.h"
