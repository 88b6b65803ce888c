#include "Bulletin.h"
