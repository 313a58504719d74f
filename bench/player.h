// Turns a type with one method per shape into an implementation. A peer offers what it can:
//     Peer(width, height), clear(color), ink(color), at(x, y), pixel(op) ... text(op),
//     save(path, depth), bitmap(work), finish(), static create(width, height), static own(peer,
//     work).
#pragma once

#include <memory>

#include "implementation.h"

namespace bench {

/// Calls @p visit with a callable that draws @p shape; false when Peer cannot.
template <typename Peer, typename Visit>
bool with_shape(Shape shape, Visit visit) {
    const auto offer = [&](auto call) {
        if constexpr (std::is_invocable_v<decltype(call), Peer&, const Op&>) {
            visit(call);
            return true;
        }
        return false;
    };
    switch (shape) {
    case Shape::pixel:
        return offer([](auto& p, const Op& op) -> decltype(p.pixel(op)) { p.pixel(op); });
    case Shape::line:
        return offer([](auto& p, const Op& op) -> decltype(p.line(op)) { p.line(op); });
    case Shape::rect:
        return offer([](auto& p, const Op& op) -> decltype(p.rect(op)) { p.rect(op); });
    case Shape::fill:
        return offer([](auto& p, const Op& op) -> decltype(p.fill(op)) { p.fill(op); });
    case Shape::circle:
        return offer([](auto& p, const Op& op) -> decltype(p.circle(op)) { p.circle(op); });
    case Shape::disc:
        return offer([](auto& p, const Op& op) -> decltype(p.disc(op)) { p.disc(op); });
    case Shape::triangle:
        return offer([](auto& p, const Op& op) -> decltype(p.triangle(op)) { p.triangle(op); });
    case Shape::text:
        return offer([](auto& p, const Op& op) -> decltype(p.text(op)) { p.text(op); });
    case Shape::words:
        return offer([](auto& p, const Op& op) -> decltype(p.words(op)) { p.words(op); });
    }
    return false;
}

template <typename Peer>
void finish(Peer& peer) {
    if constexpr (requires { peer.finish(); }) peer.finish();
}

/// Calls of one shape in one colour: the colour is set, and the shape chosen, once.
template <typename Peer>
std::function<void(int)> uniform(std::shared_ptr<Peer> peer, const Workload& work) {
    std::function<void(int)> run;
    with_shape<Peer>(work.ops.front().shape, [&](auto call) {
        run = [peer, &work, call](int times) {
            peer->ink(work.ops.front().color);
            while (times-- > 0) {
                for (const Op& op : work.ops) call(*peer, op);
            }
            finish(*peer);
        };
    });
    return run;
}

inline bool same(orvel_color a, orvel_color b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

/// A scene of several shapes and colours: the colour is set where it changes.
template <typename Peer>
std::function<void(int)> scene(std::shared_ptr<Peer> peer, const Workload& work) {
    for (const Op& op : work.ops) {
        if (!with_shape<Peer>(op.shape, [](auto) {})) return {};
    }
    return [peer, &work](int times) {
        while (times-- > 0) {
            orvel_color current = work.ops.front().color;
            peer->ink(current);
            for (const Op& op : work.ops) {
                if (!same(op.color, current)) peer->ink(current = op.color);
                with_shape<Peer>(op.shape, [&](auto call) { call(*peer, op); });
            }
            finish(*peer);
        }
    };
}

template <typename Peer>
std::function<void(int)> repeat(std::shared_ptr<Peer> peer, void (*once)(Peer&, const Workload&),
                                const Workload& work) {
    return [peer, once, &work](int times) {
        while (times-- > 0) once(*peer, work);
        finish(*peer);
    };
}

template <typename Peer>
std::function<void(int)> runner(std::shared_ptr<Peer> peer, const Workload& work) {
    switch (work.task) {
    case Task::create:
        if constexpr (requires { Peer::create(1, 1); }) {
            return repeat<Peer>(
                peer, [](Peer&, const Workload& w) { Peer::create(w.width, w.height); }, work);
        }
        return {};
    case Task::clear:
        return repeat<Peer>(
            peer, [](Peer& p, const Workload&) { p.clear(kInk); }, work);
    case Task::draw: return uniform(peer, work);
    case Task::save:
        if constexpr (requires { peer->save("", 24); }) {
            if (!peer->save(work.file.c_str(), work.size)) return {};
            return repeat<Peer>(
                peer, [](Peer& p, const Workload& w) { p.save(w.file.c_str(), w.size); }, work);
        }
        return {};
    case Task::bitmap:
        if constexpr (requires { peer->bitmap(work); }) {
            return repeat<Peer>(
                peer, [](Peer& p, const Workload& w) { p.bitmap(w); }, work);
        }
        return {};
    case Task::icons:
    case Task::redraw:
    case Task::rebuild:
        if constexpr (requires { Peer::own(peer, work); }) return Peer::own(peer, work);
        return scene(peer, work);
    case Task::words: return scene(peer, work);
    case Task::dashboard:
    case Task::tone:
        if constexpr (requires { Peer::own(peer, work); }) return Peer::own(peer, work);
        return {};
    }
    return {};
}

template <typename Peer>
Implementation implementation(std::string name, Role role = Role::peer) {
    return {
        std::move(name), role, [](const Workload& work) {
            auto peer = std::make_shared<Peer>(work.width, work.height);
            peer->clear(kPaper);
            finish(*peer);
            Job job = {runner(peer, work), {}};
            if (work.task == Task::create || work.task == Task::tone || work.task == Task::save) {
                return job;
            }
            job.painted = [peer, &work, paper = peer->at(0, 0)] {
                long count = 0;
                for (int y = 0; y < work.height; ++y) {
                    for (int x = 0; x < work.width; ++x) count += peer->at(x, y) != paper;
                }
                return count;
            };
            return job;
        }};
}

}  // namespace bench
