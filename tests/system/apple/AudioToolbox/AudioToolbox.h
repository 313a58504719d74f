/* What the sound sources use of this framework: declarations only, to compile them anywhere. */
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef UInt32 SystemSoundID;

OSStatus AudioServicesCreateSystemSoundID(CFURLRef url, SystemSoundID* id);
void AudioServicesPlaySystemSound(SystemSoundID id);

#ifdef __cplusplus
}
#endif
