// Shared helpers of Skelda's tests.
#pragma once
