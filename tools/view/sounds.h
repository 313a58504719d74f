// Effects, played beside the window: a sound server that does not answer must not hold it up.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace orvel_tools {

class Sounds {
public:
    Sounds();
    ~Sounds();
    Sounds(const Sounds&) = delete;
    Sounds& operator=(const Sounds&) = delete;

    /// Plays the effect of the resource folder "Sounds"; while one is being handed over, the newest
    /// waits and older ones are dropped.
    void play(const std::string& name);

private:
    void run();

    std::mutex mutex_;
    std::condition_variable called_;
    std::string next_;
    bool done_ = false;
    std::thread player_;
};

}  // namespace orvel_tools
