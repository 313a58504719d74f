// Which files the sound service of Linux takes.
#pragma once

namespace orvel {

/// Whether the file at @p path is what libcanberra plays: WAV of 8 or 16 bits without compression,
/// below 64 MiB, or Ogg Vorbis as far as its first page tells.
bool is_playable_effect(const char* path);

}  // namespace orvel
