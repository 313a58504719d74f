// A view looks after the files that its scene was made of.
#include "scene_options.h"
#include "view/state.h"
#include "view/view.h"

namespace orvel_tools {

void View::remember_files(const Scene& scene) {
    files_ = files_of(w_.scene, scene);
    traces_ = traces(files_);
    data_trace_ = traces({w_.scene.data});
}

void View::look_after_files() {
    if (!watching_ || now() - looked_ < kLook) return;
    looked_ = now();
    const std::string all = traces(files_), data = traces({w_.scene.data});
    const bool other_data = data != data_trace_, other_scene = all != traces_;
    // Remembered before they are read: what is written meanwhile is read next.
    traces_ = all;
    data_trace_ = data;
    if (other_data) changed_.clear();
    if (other_scene) {
        reopen();
    } else if (other_data) {
        set_data();
    }
}

void View::set_data() {
    std::string error;
    const auto data = Scene::data_of(w_.scene, error);
    if (!data) return complain(error);
    apply({SessionEvent::kSet, now(), {}, "", *data, 0, 0, 0});
    behind_ = true;
}

/// Reads the scene anew. Where it is refused, the old one goes on.
void View::reopen() {
    std::string error;
    auto scene = std::make_unique<Scene>(w_.scene, error);
    if (files_ != files_of(w_.scene, *scene)) remember_files(*scene);
    if (!scene->open()) return complain(error);
    for (const std::string& line : scene->complaints()) complain(line);
    carry_over(live_->screen(), scene->open(), changed_);
    Sides smallest;
    kit_screen_size(scene->open(), &smallest.w, &smallest.h);
    live_->replace(scene->open());
    scene_ = std::move(scene);
    ground_ = scene_->ground();
    window_->set_smallest(smallest);
    window_->expose();
    resize();
    behind_ = true;
}

}  // namespace orvel_tools
