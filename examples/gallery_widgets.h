/* Every kind of widget in the states that it shows, for examples/gallery.c and the manual's page of
   widgets: whoever includes this says what
     KIND(its name, what it is)     begins,
     STATE(what it shows, record)   does with a record and its text, and
     ROW()                          does where a sheet starts a new row. */
static const double kRates[] = {0.2, 0.5, 0.35, 0.8, 0.65, 1.0, 0.45, 0.1};

KIND("Window", "A framed surface with a band of accent for its title.");
STATE("a title", .kind = ORVEL_WIDGET_WINDOW, .box = {4, 4, 120, 60}, .text = "Window");

KIND("Panel", "A framed surface.");
STATE("the one state", .kind = ORVEL_WIDGET_PANEL, .box = {4, 4, 92, 40});

KIND("Card", "A panel with a stripe of accent down its left edge.");
STATE("the one state", .kind = ORVEL_WIDGET_CARD, .box = {4, 4, 92, 40});

KIND("Titlebar", "A title and three dots, whose colours no theme changes.");
STATE("the one state", .kind = ORVEL_WIDGET_TITLEBAR, .box = {4, 4, 180, 0}, .text = "Title");

ROW();
KIND("Statusbar", "A line of text under a rule.");
STATE("the one state", .kind = ORVEL_WIDGET_STATUSBAR, .box = {4, 4, 180, 0}, .text = "Status");

KIND("Separator", "A line.");
STATE("the one state", .kind = ORVEL_WIDGET_SEPARATOR, .box = {4, 4, 120, 0});

KIND("Label", "Words and nothing else.");
STATE("at rest", .kind = ORVEL_WIDGET_LABEL, .box = {4, 4, 0, 0}, .text = "Größe");
STATE("disabled", .kind = ORVEL_WIDGET_LABEL, .box = {4, 4, 0, 0}, .text = "Größe",
      .state = KIT_DISABLED);

KIND("Tooltip", "A bubble as wide as its text, with a pointer below its middle.");
STATE("the one state", .kind = ORVEL_WIDGET_TOOLTIP, .box = {4, 4, 0, 0}, .text = "Tooltip");

KIND("Icon", "One of the [68 icons](icons.md), in the accent colour.");
STATE("the one state", .kind = ORVEL_WIDGET_ICON, .box = {4, 4, 32, 0}, .text = "home");

KIND("Image", "A BMP file of the resource folder \"Icons\" at its own size.");
STATE("the one state", .kind = ORVEL_WIDGET_IMAGE, .box = {4, 4, 0, 0}, .text = "picture.bmp");

KIND("Avatar", "Initials on a disc.");
STATE("the one state", .kind = ORVEL_WIDGET_AVATAR, .box = {4, 4, 32, 0}, .text = "ML");

KIND("Badge", "A number on a pill that is as wide as the number.");
STATE("a number", .kind = ORVEL_WIDGET_BADGE, .box = {4, 4, 0, 0}, .amount = 7);
STATE("a text", .kind = ORVEL_WIDGET_BADGE, .box = {4, 4, 0, 0}, .text = "99+");

ROW();
KIND("Button", "A caption in the middle of a framed box, and an icon before it.");
STATE("at rest", .kind = ORVEL_WIDGET_BUTTON, .box = {4, 4, 0, 0}, .text = "Save");
STATE("an icon", .kind = ORVEL_WIDGET_BUTTON, .box = {4, 4, 0, 0}, .text = "Save", .icon = "check");
STATE("under the pointer", .kind = ORVEL_WIDGET_BUTTON, .box = {4, 4, 0, 0}, .text = "Save",
      .state = KIT_HOVER);
STATE("focused", .kind = ORVEL_WIDGET_BUTTON, .box = {4, 4, 0, 0}, .text = "Save",
      .state = KIT_FOCUS);
STATE("disabled", .kind = ORVEL_WIDGET_BUTTON, .box = {4, 4, 0, 0}, .text = "Save",
      .state = KIT_DISABLED);

KIND("Toggle", "A switch; its knob sits at the end that it is switched to.");
STATE("off", .kind = ORVEL_WIDGET_TOGGLE, .box = {4, 4, 0, 0});
STATE("on", .kind = ORVEL_WIDGET_TOGGLE, .box = {4, 4, 0, 0}, .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_TOGGLE, .box = {4, 4, 0, 0}, .state = KIT_ACTIVE | KIT_FOCUS);
STATE("disabled", .kind = ORVEL_WIDGET_TOGGLE, .box = {4, 4, 0, 0},
      .state = KIT_ACTIVE | KIT_DISABLED);

ROW();
KIND("Checkbox", "A box and a caption beside it.");
STATE("unchecked", .kind = ORVEL_WIDGET_CHECKBOX, .box = {4, 4, 0, 0}, .text = "Caption");
STATE("checked", .kind = ORVEL_WIDGET_CHECKBOX, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_CHECKBOX, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_FOCUS);
STATE("disabled", .kind = ORVEL_WIDGET_CHECKBOX, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_ACTIVE | KIT_DISABLED);

KIND("Radio", "One choice of several. That only one is selected is the host's to keep.");
STATE("not selected", .kind = ORVEL_WIDGET_RADIO, .box = {4, 4, 0, 0}, .text = "Caption");
STATE("selected", .kind = ORVEL_WIDGET_RADIO, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_RADIO, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_FOCUS);
STATE("disabled", .kind = ORVEL_WIDGET_RADIO, .box = {4, 4, 0, 0}, .text = "Caption",
      .state = KIT_DISABLED);

ROW();
KIND("Slider", "A knob on a track.");
STATE("at 0", .kind = ORVEL_WIDGET_SLIDER, .box = {4, 4, 120, 0}, .value = 0.0);
STATE("at 0.6", .kind = ORVEL_WIDGET_SLIDER, .box = {4, 4, 120, 0}, .value = 0.6);
STATE("under the pointer", .kind = ORVEL_WIDGET_SLIDER, .box = {4, 4, 120, 0}, .state = KIT_HOVER,
      .value = 0.6);
STATE("focused", .kind = ORVEL_WIDGET_SLIDER, .box = {4, 4, 120, 0}, .state = KIT_FOCUS,
      .value = 0.6);
STATE("disabled", .kind = ORVEL_WIDGET_SLIDER, .box = {4, 4, 120, 0}, .state = KIT_DISABLED,
      .value = 0.6);

ROW();
KIND("Stepper", "A number, or a text in its place, between a minus and a plus.");
STATE("a number", .kind = ORVEL_WIDGET_STEPPER, .box = {4, 4, 0, 0}, .amount = 42);
STATE("a text", .kind = ORVEL_WIDGET_STEPPER, .box = {4, 4, 0, 0}, .text = "21.5 °C");
STATE("focused", .kind = ORVEL_WIDGET_STEPPER, .box = {4, 4, 0, 0}, .state = KIT_FOCUS,
      .amount = -7);
STATE("disabled", .kind = ORVEL_WIDGET_STEPPER, .box = {4, 4, 0, 0}, .state = KIT_DISABLED,
      .amount = 42);

ROW();
KIND("Textbox", "A line of text. While it has the focus, it shows the part that its caret is in.");
STATE("at rest", .kind = ORVEL_WIDGET_TEXTBOX, .box = {4, 4, 120, 0}, .text = "Lindenhof");
STATE("empty, with a hint", .kind = ORVEL_WIDGET_TEXTBOX, .box = {4, 4, 120, 0}, .hint = "Name");
STATE("under the pointer", .kind = ORVEL_WIDGET_TEXTBOX, .box = {4, 4, 120, 0}, .text = "Lindenhof",
      .state = KIT_HOVER);
STATE("focused, a part selected", .kind = ORVEL_WIDGET_TEXTBOX, .box = {4, 4, 120, 0},
      .text = "Lindenhof", .state = KIT_FOCUS, .caret = 9, .anchor = 6);
STATE("disabled", .kind = ORVEL_WIDGET_TEXTBOX, .box = {4, 4, 120, 0}, .text = "Lindenhof",
      .state = KIT_DISABLED);

ROW();
KIND("Search", "A text field with a magnifier.");
STATE("empty, with a hint", .kind = ORVEL_WIDGET_SEARCH, .box = {4, 4, 140, 0}, .hint = "Find");
STATE("active", .kind = ORVEL_WIDGET_SEARCH, .box = {4, 4, 140, 0}, .text = "Words",
      .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_SEARCH, .box = {4, 4, 140, 0}, .text = "Words",
      .state = KIT_FOCUS, .caret = 5, .anchor = 5);
STATE("disabled", .kind = ORVEL_WIDGET_SEARCH, .box = {4, 4, 140, 0}, .hint = "Find",
      .state = KIT_DISABLED);

ROW();
KIND("Dropdown", "A field with an arrow. The list that opens is the host's to draw.");
STATE("closed", .kind = ORVEL_WIDGET_DROPDOWN, .box = {4, 4, 120, 0}, .text = "Weekly");
STATE("open", .kind = ORVEL_WIDGET_DROPDOWN, .box = {4, 4, 120, 0}, .text = "Weekly",
      .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_DROPDOWN, .box = {4, 4, 120, 0}, .text = "Weekly",
      .state = KIT_FOCUS);
STATE("disabled", .kind = ORVEL_WIDGET_DROPDOWN, .box = {4, 4, 120, 0}, .text = "Weekly",
      .state = KIT_DISABLED);

ROW();
KIND("Tabs", "Captions joined with \"|\", each in a tab of the same width.");
STATE("the second selected", .kind = ORVEL_WIDGET_TABS, .box = {4, 4, 0, 0},
      .text = "Day|Week|Month", .amount = 1);
STATE("focused", .kind = ORVEL_WIDGET_TABS, .box = {4, 4, 0, 0}, .text = "Day|Week|Month",
      .state = KIT_FOCUS, .amount = 1);
STATE("disabled", .kind = ORVEL_WIDGET_TABS, .box = {4, 4, 0, 0}, .text = "Day|Week|Month",
      .state = KIT_DISABLED, .amount = 1);

ROW();
KIND("Menu", "Items side by side, joined with \"|\". It has neither frame nor ground of its own.");
STATE("the first selected", .kind = ORVEL_WIDGET_MENU, .box = {4, 4, 0, 0},
      .text = "File|Edit|View");
STATE("none selected", .kind = ORVEL_WIDGET_MENU, .box = {4, 4, 0, 0}, .text = "File|Edit|View",
      .amount = -1);
STATE("focused", .kind = ORVEL_WIDGET_MENU, .box = {4, 4, 0, 0}, .text = "File|Edit|View",
      .state = KIT_FOCUS);

ROW();
KIND("List item", "A row with a caption and, if it is given one, an icon.");
STATE("an icon", .kind = ORVEL_WIDGET_LIST_ITEM, .box = {4, 4, 160, 0}, .text = "Inbox",
      .icon = "mail");
STATE("no icon", .kind = ORVEL_WIDGET_LIST_ITEM, .box = {4, 4, 160, 0}, .text = "Drafts");
STATE("selected", .kind = ORVEL_WIDGET_LIST_ITEM, .box = {4, 4, 160, 0}, .text = "Inbox",
      .icon = "mail", .state = KIT_ACTIVE);
STATE("focused", .kind = ORVEL_WIDGET_LIST_ITEM, .box = {4, 4, 160, 0}, .text = "Inbox",
      .icon = "mail", .state = KIT_FOCUS);

ROW();
KIND("Progress", "A frame that fills from the left.");
STATE("at 0", .kind = ORVEL_WIDGET_PROGRESS, .box = {4, 4, 120, 12}, .value = 0.0);
STATE("at 0.4", .kind = ORVEL_WIDGET_PROGRESS, .box = {4, 4, 120, 12}, .value = 0.4);
STATE("at 1", .kind = ORVEL_WIDGET_PROGRESS, .box = {4, 4, 120, 12}, .value = 1.0);

KIND("Spinner",
     "A dot on a ring. The host turns it: the value is the fraction of a turn "
     "from 3 o'clock.");
STATE("at 0", .kind = ORVEL_WIDGET_SPINNER, .box = {4, 4, 24, 0}, .value = 0.0);
STATE("at 0.25", .kind = ORVEL_WIDGET_SPINNER, .box = {4, 4, 24, 0}, .value = 0.25);
STATE("at 0.6", .kind = ORVEL_WIDGET_SPINNER, .box = {4, 4, 24, 0}, .value = 0.6);

ROW();
KIND("Rating",
     "Five stars. The value is the fraction of them that shine, to "
     "the nearest whole star.");
STATE("at 0", .kind = ORVEL_WIDGET_RATING, .box = {4, 4, 0, 0}, .value = 0.0);
STATE("at 0.6", .kind = ORVEL_WIDGET_RATING, .box = {4, 4, 0, 0}, .value = 0.6);
STATE("disabled", .kind = ORVEL_WIDGET_RATING, .box = {4, 4, 0, 0}, .state = KIT_DISABLED,
      .value = 0.6);

KIND("Bars",
     "A bar chart. Values outside 0 to 1 are drawn as the nearest of the two. The kit's charts "
     "have axes and series.");
STATE("eight values", .kind = ORVEL_WIDGET_BARS, .box = {4, 4, 120, 50}, .data = kRates,
      .count = 8);

#undef KIND
#undef STATE
#undef ROW
