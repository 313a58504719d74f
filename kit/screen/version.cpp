#include "orvel_screen.h"

const char* kit_screen_version() { return KIT_SCREEN_VERSION; }
