#include "system/fake_system_sound.h"

#include "sound/system_sound.h"

orvel_test::FakeSystemSound& orvel_test::fake_system_sound() {
    static FakeSystemSound service;
    return service;
}

int orvel::play_system_sound(const std::string& path) {
    orvel_test::fake_system_sound().played.push_back(path);
    return orvel_test::fake_system_sound().result;
}
