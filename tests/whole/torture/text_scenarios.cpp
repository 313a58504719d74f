#include "whole/torture/scenario.h"

namespace orvel_test::torture {

Scenarios text_scenarios() {
    return {
        {"a text is measured", [](Host& host) { host.call(orvel_text_width, "Orvel"); }, "29", {}},
        {"a long text is measured",
         [](Host& host) { host.call(orvel_text_width, std::string(100000, 'x').c_str()); },
         "599999",
         {}},
        {"a text is drawn",
         [](Host& host) {
             host.call(orvel_text_draw, host.canvas(), "Orvel", 3, 4, kInk);
             host.tell_canvas();
         },
         "drawn",
         {}},
        {"a text is drawn across every edge",
         [](Host& host) {
             const std::string line(20, 'O');
             for (const int y : {-3, 10, 28}) {
                 host.call(orvel_text_draw, host.canvas(), line.c_str(), -9, y, kInk);
             }
             host.tell_canvas();
         },
         "drawn",
         {}},
    };
}

}  // namespace orvel_test::torture
