from orvelsdk import Canvas, Theme

canvas = Canvas(240, 72, "background", theme=Theme.light())
canvas.icon("home", 12, 12, 20, "accent")
canvas.text("Kitchen", 40, 27, face="bold 14")
canvas.text("21.5 °C", 170, 27, face="bold 14")
canvas.widget("slider", 12, 40, 216, 20, value=0.65)
canvas.save("kitchen.png")
