/* Beeps a scale, then plays a sound effect and a piece of music, which it makes itself. */
#define _POSIX_C_SOURCE 200809L

#include <errno.h>
#include <math.h>
#include <orvel.h>
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <time.h>

enum { RATE = 44100, NOTE_MS = 200 };

static const double kScale[] = {261.63, 293.66, 329.63, 349.23, 392.00, 440.00, 493.88, 523.25};
static const int kMelody[] = {0, 2, 4, 7, 4, 2, 0, 4, 7, 4, 0, 0};

static void fail(const char* what) {
    fprintf(stderr, "sounds: %s: %s\n", what, strerror(errno));
    exit(1);
}

static void wait_ms(int ms) {
    struct timespec rest = {ms / 1000, ms % 1000 * 1000000L};
    while (nanosleep(&rest, &rest) != 0) {
    }
}

/* FOLDER/NAME in a buffer that the next call overwrites. */
static const char* path_in(const char* folder, const char* name) {
    static char path[4096];
    const int length = snprintf(path, sizeof path, "%s/%s", folder, name);
    if (length < 0 || (size_t)length >= sizeof path) {
        errno = ENAMETOOLONG;
        fail(folder);
    }
    return path;
}

static void make_folder(const char* path) {
    if (mkdir(path, 0777) != 0 && errno != EEXIST) fail(path);
}

static void put(unsigned char* at, uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) at[i] = (unsigned char)(value >> 8 * i);
}

/* Writes a mono WAV file of 16 bits, which every system plays as effect and as music. */
static void write_wav(const char* path, const double* wave, size_t count) {
    unsigned char header[44] = "RIFF";
    memcpy(header + 8, "WAVEfmt ", 8);
    memcpy(header + 36, "data", 4);
    put(header + 4, (uint32_t)(36 + 2 * count), 4);
    put(header + 16, 16, 4);       /* size of the format */
    put(header + 20, 1, 2);        /* PCM */
    put(header + 22, 1, 2);        /* channels */
    put(header + 24, RATE, 4);     /* samples a second */
    put(header + 28, 2 * RATE, 4); /* bytes a second */
    put(header + 32, 2, 2);        /* bytes a sample */
    put(header + 34, 16, 2);       /* bits a sample */
    put(header + 40, (uint32_t)(2 * count), 4);

    FILE* file = fopen(path, "wb");
    if (!file || fwrite(header, sizeof header, 1, file) != 1) fail(path);
    for (size_t i = 0; i < count; ++i) {
        unsigned char sample[2];
        put(sample, (uint32_t)(int32_t)(wave[i] * 32767.0), 2);
        if (fwrite(sample, sizeof sample, 1, file) != 1) fail(path);
    }
    if (fclose(file) != 0) fail(path);
}

/* A struck bell: partials that die away, the high ones first. Adds it to the wave. */
static void ring(double* wave, size_t count, double pitch) {
    const double partials[] = {1.0, 2.0, 3.01, 4.23};
    for (size_t i = 0; i < count; ++i) {
        const double t = (double)i / RATE;
        const double attack = t < 0.005 ? t / 0.005 : 1.0;
        for (int k = 0; k < 4; ++k) {
            wave[i] += 0.2 / (k + 1) * attack * exp(-t * 5.0 * (k + 1)) *
                       sin(6.283185307179586 * pitch * partials[k] * t);
        }
    }
}

static void make_effect(const char* path) {
    static double wave[RATE / 2];
    ring(wave, RATE / 2, 1046.5);
    write_wav(path, wave, RATE / 2);
}

static void make_music(const char* path) {
    enum { NOTE = RATE / 4, NOTES = sizeof kMelody / sizeof *kMelody };
    static double wave[NOTES * NOTE + NOTE];
    for (size_t i = 0; i < NOTES; ++i) ring(wave + i * NOTE, 2 * NOTE, kScale[kMelody[i]]);
    write_wav(path, wave, sizeof wave / sizeof *wave);
}

static void play_scale(void) {
    for (size_t i = 0; i < sizeof kScale / sizeof *kScale; ++i) {
        if (orvel_play_tone(kScale[i], NOTE_MS) != 0) fail("no process for the tone");
        wait_ms(NOTE_MS + 50);
    }
}

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const char* folder = argv[1];
    make_folder(folder);
    make_folder(path_in(folder, "Sounds"));
    make_folder(path_in(folder, "Music"));
    make_effect(path_in(folder, "Sounds/bell.wav"));
    make_music(path_in(folder, "Music/bells.wav"));
    orvel_set_resource_path(folder);
    signal(SIGCHLD, SIG_IGN); /* the tones' players are children that nobody else waits for */

    play_scale();
    const int effect = orvel_play_sound("bell");
    wait_ms(600);
    if (orvel_play_music("bells") != 0) fail("no process for the music");
    wait_ms(1250);
    orvel_stop_music();
    if (effect != 0) {
        fprintf(stderr, "sounds: the effect was refused: no sound service is to be had here\n");
    }
    return effect == 0 ? 0 : 1;
}
