#include <AudioToolbox/AudioToolbox.h>
#include <CoreFoundation/CoreFoundation.h>

#include "sound/system_sound.h"

namespace orvel {

int play_system_sound(const std::string& path) {
    const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
        static_cast<CFIndex>(path.size()), false);
    if (!url) return -1;
    SystemSoundID id = 0;
    const OSStatus status = AudioServicesCreateSystemSoundID(url, &id);
    CFRelease(url);
    if (status != 0) return -1;
    // Deliberate: the identifier is neither kept nor disposed of, which would cut the sound short.
    AudioServicesPlaySystemSound(id);
    return 0;
}

}  // namespace orvel
