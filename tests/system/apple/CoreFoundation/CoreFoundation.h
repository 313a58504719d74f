/* What the sound sources use of this framework: declarations only, to compile them anywhere. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef unsigned char UInt8;
typedef unsigned char Boolean;
typedef unsigned int UInt32;
typedef int SInt32;
typedef SInt32 OSStatus;
typedef long CFIndex;
typedef const void* CFTypeRef;
typedef const struct StandInAllocator* CFAllocatorRef;
typedef const struct StandInUrl* CFURLRef;

extern const CFAllocatorRef kCFAllocatorDefault;

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* bytes,
                                                 CFIndex length, Boolean is_directory);
void CFRelease(CFTypeRef object);

#ifdef __cplusplus
}
#endif
