-- examples/hello.c in Lua: the same picture, byte for byte.
local orvel = require "orvel"
local color = orvel.orvel_color
local night, far, near = color(22, 27, 51, 255), color(52, 64, 105, 255), color(32, 40, 72, 255)
local light = color(255, 209, 102, 255)

local canvas = orvel.kit_canvas(240, 144)
orvel.orvel_canvas_clear(canvas, night)
orvel.orvel_canvas_fill_circle(canvas, 186, 44, 25, light)
orvel.orvel_canvas_fill_circle(canvas, 175, 37, 22, night)
orvel.orvel_canvas_fill_triangle(canvas, -30, 144, 84, 66, 192, 144, far)
orvel.orvel_canvas_fill_triangle(canvas, 90, 144, 186, 90, 285, 144, near)
orvel.kit_text_draw(canvas, orvel.kit_bold_24(), "Hello", 18, 36, light)
orvel.kit_text_draw(canvas, orvel.kit_sans_12(), "Good night, hills", 19, 56, light)
orvel.orvel_canvas_rect(canvas, 0, 0, 240, 144, light)
orvel.kit_save_bmp(canvas, "hello.bmp")
