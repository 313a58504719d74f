// What a program in TypeScript looks like; the compiler reads it strictly.
import { api, Canvas, Chart, Color, Face, Screen, Theme, Widget } from "orvelsdk";
import type { Box, Host, Json, Player } from "orvelsdk";

const canvas: Canvas = new Canvas(240, 144, "#161b33", { theme: Theme.light({ accent: "#8839ef" }) });
const end: number = canvas.text("Hello", 18, 36, { face: new Face("bold 24"), color: [255, 209, 102] });
canvas.disc(end, 44, 25, "accent");
canvas.draw(new Widget("slider", 12, 70, 200, 20, { value: 0.4, focus: true }));
canvas.draw(new Chart("bars", [{ values: [1, null, 3], name: "Water", color: Color.of("#123456") }, [1, 2]],
                      0, 0, 99, 99, { axes: true, labels: ["Mo", "Tu"] }));
canvas.clip([0, 0, 9, 9], (inside, { x, y }) => inside.fill(2 - x, 2 - y, 3, 3));
canvas.theme = "dark";
canvas.theme.accent = "#ffffff";
const png: Uint8Array = canvas.png();
const image: ImageData = canvas.imageData();

const host: Host = { pictures: { logo: png }, themes: new Map([["mine", new Theme()]]),
                     includes: (name) => name === "part.json" ? "{}" : null };
const data: Json = { power: 7, rooms: [{ name: "Kitchen" }] };
const screen = new Screen({ orvel: 1, size: [image.width, 80], root: { text: "${power}" } }, data,
                          { name: "meter", host });
screen.set("power", 8);
const changed: Box | null = screen.draw();
const value: Json | undefined = screen.get("power");

// The names of C.
const own: api.orvel_canvas | null = api.kit_canvas(10, 10);
const status: number = api.kit_draw(own, { accent: { r: 255, a: 255 } },
                                    { kind: api.ORVEL_WIDGET_BUTTON, box: { w: 9 }, text: "Größe" });
api.orvel_canvas_destroy(own);
const player: Player = { tone: (wav) => wav.length > 0 };

// @ts-expect-error a kind that there is not
new Widget("buton");
// @ts-expect-error what C takes for a number
api.orvel_canvas_clear(own, "#000000");
// @ts-expect-error another kind of object
api.kit_face_line(own);

export { changed, player, status, value };
