#include "sound/effect_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "support/files.h"
#include "support/wav.h"

namespace {

using orvel_test::chunk;
using orvel_test::format;
using orvel_test::little;
using orvel_test::riff;
using orvel_test::silence;
using orvel_test::TempFolder;
using orvel_test::write_file;

bool playable(const std::string& bytes) {
    const TempFolder folder;
    write_file(folder / "effect", bytes);
    return orvel::is_playable_effect((folder / "effect").c_str());
}

bool playable_format(const std::string& content) {
    return playable(riff(chunk("fmt ", content) + chunk("data", std::string(400, 'x'))));
}

const std::string kPcmGuid("\1\0\0\0\0\0\x10\0\x80\0\0\xaa\0\x38\x9b\x71", 16);

std::string extensible(unsigned bits, const std::string& guid) {
    return format(0xfffe, 2, 44100, bits) + little(22, 2) + little(bits, 2) + little(3, 4) + guid;
}

TEST(EffectFileTest, PlainWavOf8And16BitsIsPlayable) {
    EXPECT_TRUE(playable(silence()));
    EXPECT_TRUE(playable_format(format(1, 1, 44100, 16)));
    EXPECT_TRUE(playable_format(format(1, 2, 48000, 8)));
    EXPECT_TRUE(playable_format(format(1, 256, 1u << 24, 16)));  // in the highest bytes alone
    EXPECT_TRUE(playable_format(format(1, 1, 44100, 16) + little(0, 2)));
    EXPECT_TRUE(playable_format(extensible(16, kPcmGuid)));
}

TEST(EffectFileTest, OtherDepthsAndCodingsAreNot) {
    EXPECT_FALSE(playable_format(format(1, 1, 44100, 24)));
    EXPECT_FALSE(playable_format(format(1, 1, 44100, 32)));
    EXPECT_FALSE(playable_format(format(3, 1, 44100, 32)));  // floating point
    EXPECT_FALSE(playable_format(format(6, 1, 44100, 8)));   // A-law
    EXPECT_FALSE(playable_format(extensible(24, kPcmGuid)));
    EXPECT_FALSE(playable_format(extensible(16, "\3" + kPcmGuid.substr(1))));
    EXPECT_FALSE(playable_format(format(0xfffe, 2, 44100, 16)));
    EXPECT_FALSE(playable_format(format(1, 2, 44100, 16) + std::string(24, 'x')));
}

TEST(EffectFileTest, SilentNonsenseInTheFormatIsRefused) {
    EXPECT_FALSE(playable_format(format(1, 0, 44100, 16)));
    EXPECT_FALSE(playable_format(format(1, 1, 0, 16)));
    EXPECT_FALSE(playable_format(format(1, 256, 0, 16)));
    EXPECT_FALSE(playable_format(format(1, 1, 44100, 16).substr(0, 14)));
    EXPECT_FALSE(playable_format(format(1, 1, 44100, 16) + std::string(1000, 'x')));
}

TEST(EffectFileTest, OtherChunksAreSkippedAndEmptyOnesRefused) {
    const std::string sound =
        chunk("fmt ", format(1, 1, 8000, 16)) + chunk("LIST", "abcd") + chunk("data", "0123");
    EXPECT_TRUE(playable(riff(sound)));
    EXPECT_TRUE(playable(riff(chunk("bext", std::string(602, 'x')) + sound)));
    EXPECT_FALSE(playable(riff(chunk("bext", "") + sound)));
    EXPECT_FALSE(playable(riff("bext" + little(64u << 20, 4) + sound)));
    EXPECT_FALSE(playable(riff("bext" + little(0xffffffffu, 4) + sound)));
}

TEST(EffectFileTest, TheDataMustBeThereInWholeSamples) {
    const std::string head = chunk("fmt ", format(1, 1, 8000, 16));
    EXPECT_FALSE(playable(riff(head)));
    EXPECT_FALSE(playable(riff(head + chunk("data", ""))));
    EXPECT_FALSE(playable(riff(head + chunk("data", "012"))));
    EXPECT_FALSE(playable(riff(head + "data" + little(0xffffffffu, 4) + "0123")));
    EXPECT_TRUE(playable(riff(head + "data" + little(1000, 4) + "0123")));  // cut off: plays so far
    EXPECT_FALSE(playable(riff(chunk("data", "0123") + head)));
}

TEST(EffectFileTest, TheSizeOfTheWholeMustBePlausible) {
    std::string wav = silence();
    wav.replace(4, 4, little(0, 4));
    EXPECT_FALSE(playable(wav));
    wav.replace(4, 4, little(64u << 20, 4));
    EXPECT_FALSE(playable(wav));
    wav.replace(4, 4, little((64u << 20) - 1, 4));
    EXPECT_TRUE(playable(wav));
}

TEST(EffectFileTest, EveryCutShortOfTheDataIsRefused) {
    const std::string wav = silence();
    for (std::size_t size = 0; size < 44; ++size) EXPECT_FALSE(playable(wav.substr(0, size)));
}

TEST(EffectFileTest, OggVorbisIsKnownByItsFirstPage) {
    const std::string page = "OggS" + std::string(24, '\0') + "\1vorbis" + std::string(30, 'x');
    EXPECT_TRUE(playable(page));
    EXPECT_FALSE(playable(page.substr(0, 34)));
    for (const std::size_t known : {0u, 1u, 2u, 3u, 28u, 29u, 30u, 31u, 32u, 33u, 34u}) {
        std::string other = page;
        other[known] = '-';
        EXPECT_FALSE(playable(other)) << known;
    }
    EXPECT_FALSE(playable("OggS" + std::string(24, '\0') + "OpusHead" + std::string(30, 'x')));
}

TEST(EffectFileTest, WhatIsNoSoundIsRefusedWithoutWaiting) {
    const TempFolder folder;
    EXPECT_FALSE(playable("This is a text and not a sound at all, as everybody can see."));
    EXPECT_FALSE(playable("FORM" + little(1000, 4) + "AIFF" + std::string(1000, 'x')));
    EXPECT_FALSE(playable("RIFF" + little(1000, 4) + "AVI " + silence().substr(12)));
    EXPECT_FALSE(orvel::is_playable_effect((folder / "missing").c_str()));
    EXPECT_FALSE(orvel::is_playable_effect(folder.path().c_str()));
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    EXPECT_FALSE(orvel::is_playable_effect((folder / "fifo").c_str()));
}

TEST(EffectFileTest, WhatCannotSkipAChunkIsNoEffect) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    const int both_ends = open((folder / "fifo").c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(both_ends, 0);
    const std::string sound = riff(chunk("LIST", "abcd") + silence().substr(12));
    ASSERT_TRUE(playable(sound));
    ASSERT_EQ(write(both_ends, sound.data(), sound.size()), static_cast<ssize_t>(sound.size()));
    EXPECT_FALSE(orvel::is_playable_effect((folder / "fifo").c_str()));
    close(both_ends);
}

}  // namespace
