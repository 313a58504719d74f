/* A host in strict C99 that calls every function of screens, plainly and with null. */
#include <stdio.h>
#include <string.h>

#include "orvel_screen.h"

static int s_failures = 0;

static void check(int holds, const char* what, int line) {
    if (holds) return;
    fprintf(stderr, "screen_api_test.c:%d: %s\n", line, what);
    ++s_failures;
}
#define CHECK(condition) check((condition) != 0, #condition, __LINE__)

static const char kScene[] =
    "{\"orvel\": 1, \"size\": [60, 40], \"root\": {\"column\": [{\"text\": \"${a}\", \"id\": "
    "\"a\"}], \"id\": \"root\"}}";

static const char* include(void* self, const char* name, size_t* length) {
    *length = strlen((const char*)self);
    return strcmp(name, "other") == 0 ? (const char*)self : NULL;
}

static void opened(const char* path) {
    char why[200] = "";
    char other[] = "{\"orvel\": 1, \"root\": {\"text\": \"Other\"}}";
    const char including[] = "{\"orvel\": 1, \"root\": {\"include\": \"other\"}}";
    kit_screen_host host = {0};
    kit_screen* screen = kit_screen_open(path, "{\"a\": 1}", NULL, why, sizeof why);
    CHECK(screen != NULL && *why == '\0');
    kit_screen_close(screen);
    CHECK(kit_screen_open(NULL, NULL, NULL, NULL, 0) == NULL);
    CHECK(kit_screen_read(NULL, 0, NULL, NULL, NULL, why, sizeof why) == NULL && *why != '\0');
    host.self = other;
    host.include = include;
    screen = kit_screen_read(including, sizeof including - 1, NULL, NULL, &host, why, sizeof why);
    CHECK(screen != NULL);
    CHECK(strstr(kit_screen_describe(screen), "text \"Other\"") != NULL);
    kit_screen_close(screen);
    kit_screen_close(NULL);
}

static void changed(kit_screen* screen) {
    char why[200] = "";
    int w = 0, h = 0;
    kit_box box = {0, 0, 0, 0};
    CHECK(kit_screen_set(screen, "a", "\"Two\"", why, sizeof why) == 0);
    CHECK(strcmp(kit_screen_get(screen, "a"), "\"Two\"") == 0);
    CHECK(kit_screen_set(NULL, NULL, NULL, NULL, 0) == -1 && kit_screen_get(NULL, NULL) == NULL);
    CHECK(kit_screen_resize(screen, 50, 30, why, sizeof why) == 0);
    CHECK(kit_screen_resize(NULL, 1, 1, NULL, 0) == -1);
    kit_screen_size(screen, &w, &h);
    kit_screen_size(NULL, NULL, NULL);
    CHECK(w == 50 && h == 30);
    CHECK(kit_screen_add(screen, "root", 0, "{\"space\": 4, \"id\": \"b\"}", why, 200) == 0);
    CHECK(kit_screen_change(screen, "b", "space", "5", why, sizeof why) == 0);
    CHECK(kit_screen_box(screen, "b", &box) == 0 && box.w == 50 && box.h == 5);
    CHECK(kit_screen_remove(screen, "b", why, sizeof why) == 0);
    CHECK(kit_screen_add(NULL, NULL, 0, NULL, NULL, 0) == -1);
    CHECK(kit_screen_change(NULL, NULL, NULL, NULL, NULL, 0) == -1);
    CHECK(kit_screen_remove(NULL, NULL, NULL, 0) == -1 && kit_screen_box(NULL, NULL, NULL) == -1);
}

static void used(kit_screen* screen) {
    kit_screen_event event = {0};
    kit_change change;
    kit_box box;
    CHECK(kit_screen_add(screen, "root", 0, "{\"button\": \"B\", \"id\": \"b\"}", NULL, 0) == 0);
    CHECK(kit_screen_focus(screen, "b") == 0 && kit_screen_focus(screen, "a") == -1);
    CHECK(kit_screen_focus(screen, NULL) == 0 && kit_screen_focus(NULL, "b") == -1);
    event.kind = KIT_EVENT_PRESS;
    event.x = event.y = 5;
    CHECK(kit_screen_send(screen, &event, 0) == 0);
    event.kind = KIT_EVENT_RELEASE;
    CHECK(kit_screen_send(screen, &event, 0) == 0);
    event.kind = KIT_EVENT_FOCUS + 1;
    CHECK(kit_screen_send(screen, &event, 0) == -1);
    CHECK(kit_screen_send(NULL, &event, 0) == -1 && kit_screen_send(screen, NULL, 0) == -1);
    CHECK(kit_screen_next(screen, &change) == 1 && change.kind == KIT_CHANGE_PRESS);
    CHECK(strcmp(change.id, "b") == 0 && *change.name == '\0' && strcmp(change.value, "null") == 0);
    CHECK(kit_screen_next(screen, &change) == 0 && strcmp(change.value, "null") == 0);
    CHECK(kit_screen_next(NULL, &change) == -1 && kit_screen_next(screen, NULL) == -1);
    CHECK(kit_screen_wait(NULL, 0) == -1);
    CHECK(kit_screen_caret(screen, &box) == -1 && kit_screen_caret(NULL, NULL) == -1);
    CHECK(kit_screen_pointer(screen) == KIT_POINTER_HAND);
    CHECK(kit_screen_pointer(NULL) == KIT_POINTER_ARROW);
    CHECK(kit_screen_remove(screen, "b", NULL, 0) == 0);
}

int main(int argument_count, char** arguments) {
    kit_box dirty = {0, 0, 0, 0};
    orvel_canvas* const canvas = kit_canvas(60, 40);
    kit_screen* screen;
    if (argument_count != 2) return 2;
    CHECK(strcmp(kit_screen_version(), KIT_SCREEN_VERSION) == 0);
    opened(arguments[1]);
    screen = kit_screen_read(kScene, sizeof kScene - 1, "name", "{\"a\": \"One\"}", NULL, NULL, 0);
    CHECK(screen != NULL);
    CHECK(kit_screen_draw(screen, canvas, &dirty) == 0 && dirty.w == 60 && dirty.h == 40);
    CHECK(kit_screen_draw(NULL, NULL, NULL) == -1);
    changed(screen);
    used(screen);
    kit_screen_expose(screen, NULL);
    kit_screen_expose(NULL, NULL);
    CHECK(kit_screen_draw(screen, canvas, NULL) == 0);
    CHECK(kit_screen_report(screen) != NULL && kit_screen_report(NULL) == NULL);
    CHECK(kit_screen_report_on(screen, NULL) != NULL && kit_screen_report_on(NULL, NULL) == NULL);
    CHECK(kit_screen_describe(NULL) == NULL);
    kit_screen_close(screen);
    orvel_canvas_destroy(canvas);
    return s_failures != 0;
}
