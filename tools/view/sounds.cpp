#include "view/sounds.h"

#include "orvel.h"

namespace orvel_tools {

Sounds::Sounds() : player_([this] { run(); }) {}

Sounds::~Sounds() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        done_ = true;
    }
    called_.notify_one();
    player_.join();  // after two seconds at the most
}

void Sounds::play(const std::string& name) {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        next_ = name;
    }
    called_.notify_one();
}

void Sounds::run() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        called_.wait(lock, [this] { return done_ || !next_.empty(); });
        if (done_) return;
        const std::string name = std::move(next_);
        next_.clear();
        lock.unlock();
        orvel_play_sound(name.c_str());  // no sound is no error
        lock.lock();
    }
}

}  // namespace orvel_tools
