// Descriptors in someone else's process: none of the library's reaches its child processes, or gets
// the number of a standard stream that it has closed.
#pragma once

struct stat;

namespace orvel {

/// As open(2), created with the rights that the umask leaves. What is printed to a standard stream
/// that is closed does not land in the file, not even while it is being opened.
int open_beside_streams(const char* path, int flags);

/// The same, without waiting for the other end of a FIFO or for a device. Only a file that
/// @p is_waited_for is waited for while another process has a lease on it, which the kernel ends.
int open_promptly(const char* path, int flags, bool (*is_waited_for)(const struct stat&));

bool is_regular(const struct stat& info);

}  // namespace orvel
