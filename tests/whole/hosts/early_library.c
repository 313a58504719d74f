/* A host's own library that does not say that it needs OrvelSDK, so that the loader may well start
   it first. It works while it is started and while it is unloaded. */
#include "early_work.h"

__attribute__((constructor)) static void start(void) { early_work("library_start"); }
__attribute__((destructor)) static void end(void) { early_work("library_end"); }

void early_library(void) {}
