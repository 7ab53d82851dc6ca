"""What a user does. Each deed gets the stage and a source of chance of its own, so that what is done next
does not depend on how this one went."""
BUTTONS = ("play", "pause", "backward", "forward", "playlist", "eject")
SURFACES = BUTTONS + ("volume", "visualisation", "title", "status", "window")
SEEKERS = ("backward", "forward")
TIPPED = ("volume", "backward", "forward", "eject")


def some_button(chance):
    return chance.choices((1, 3, 2), (80, 12, 8))[0]


def some_shift(chance):
    return chance.choices((0, 1, 2, 4, 3), (85, 8, 4, 2, 1))[0]


def inside(chance):
    return chance.uniform(0.1, 0.9), chance.uniform(0.1, 0.9)


def around(chance):
    return chance.uniform(-1.5, 2.5), chance.uniform(-1.5, 2.5)


def click(stage, chance):
    name, button = chance.choice(BUTTONS), some_button(chance)
    stage.with_keys(some_shift(chance), lambda: stage.click(name, button))


def click_anywhere(stage, chance):
    stage.point_at(chance.choice(SURFACES), *inside(chance))
    button = some_button(chance)
    stage.press(button)
    stage.release(button)


def impatient_clicks(stage, chance):
    stage.point_at(chance.choice(BUTTONS[1:5]))
    for _ in range(chance.randint(2, 8)):
        stage.hand.press(1)
        stage.hand.release(1)


def drag(stage, chance):
    """Off a control and perhaps back; with another button than the left one up and away from any menu."""
    name, button = chance.choice(SURFACES), some_button(chance)
    stage.point_at(name, *inside(chance))
    stage.press(button)
    for _ in range(chance.randint(1, 6)):
        across, down = around(chance) if button == 1 else (chance.uniform(-3, 0), chance.uniform(-3, 0))
        stage.point_at(name, across, down)
        stage.pause(chance.uniform(0, 0.3))
    if button == 1 and chance.random() < 0.4:
        stage.point_at(name)
    stage.release(button)


def move_window(stage, chance):
    stage.point_at(chance.choice(("title", "status", "window")), 0.05, chance.uniform(0.3, 0.8))
    x, y = stage.hand.place()
    stage.press(1)
    for _ in range(chance.randint(1, 8)):
        x, y = x + chance.randint(-40, 40), y + chance.randint(-40, 40)
        stage.hand.point(max(0, x), max(0, y))
        stage.pause(chance.uniform(0, 0.2))
    stage.release(1)


def drag_volume(stage, chance):
    down = chance.random()
    stage.point_at("volume", 0.5, down)
    stage.press(1)
    for _ in range(chance.randint(3, 40)):
        down = min(1.4, max(-0.4, down + chance.uniform(-0.15, 0.15)))
        stage.point_at("volume", chance.uniform(0.2, 0.8), down)
        stage.pause(chance.uniform(0, 0.05))
    stage.release(1)


def seek(stage, chance):
    """Shift may be let go before the button, and the pointer may go elsewhere meanwhile."""
    stage.point_at(chance.choice(SEEKERS))
    stage.hand.key_down("Shift_L")
    stage.press(some_button(chance))
    if chance.random() < 0.5:
        stage.hand.key_up("Shift_L")
    stage.pause(chance.choice((0.05, 0.6, 1.3, 2.5, 6)))
    if chance.random() < 0.3:
        stage.point_at(chance.choice(SURFACES))
    stage.hand.let_go()


def both_buttons(stage, chance):
    first, second = chance.sample((1, 2, 3), 2)
    names = chance.choice(BUTTONS), chance.choice(SURFACES)
    stage.point_at(names[0])
    stage.press(first)
    stage.pause(chance.uniform(0, 0.5))
    if chance.random() < 0.4:
        stage.point_at(names[1])
    stage.press(second)
    stage.pause(chance.uniform(0, 0.5))
    for button in chance.sample((first, second), 2):
        stage.release(button)


def lost_release(stage, chance):
    """The window vanishes under the hand, and the release goes elsewhere."""
    shift = chance.choice((0, 1))
    stage.point_at(chance.choice(SURFACES))
    stage.with_keys(shift, lambda: stage.press(1))
    stage.pause(chance.uniform(0, 1.5))
    if stage.dialog() is None and stage.menu() is None:
        stage.minimise()
    stage.release(1)
    stage.pause(chance.uniform(0, 1))
    stage.restore()


def late_release(stage, chance):
    """The button stays down over what comes next; in most cases `make_way` lets it go."""
    stage.point_at(chance.choice(SURFACES), *inside(chance))
    stage.press(1)


def change_skin(stage, chance):
    for _ in range(chance.randint(1, 3)):
        stage.click("playlist")
        stage.pause(chance.uniform(0, 0.5))


def step(stage, chance):
    stage.click(chance.choice(SEEKERS))


def play_or_stop(stage, chance):
    """From rest this asks for a file; what comes up is answered later, if not by the next deed."""
    stage.click("play")


def ask_for_file(stage, chance):
    stage.click("eject")


def ask_for_playlist(stage, chance):
    stage.with_keys(chance.choice((1, 2)), lambda: stage.click("eject"))


def open_menu(stage, chance):
    """Its middle minimises, its top row does nothing; a menu that still stands is dismissed later."""
    part = chance.choice((0.5, 0.2, None))
    stage.point_at("window", chance.uniform(0.02, 0.2), chance.uniform(0.3, 0.9))
    stage.press(chance.choice((2, 3)))
    stage.hand.let_go()
    menu = stage.menu()
    if menu is None or part is None:
        return
    frame = stage.hand.rect(menu)
    stage.hand.point(frame.left + frame.width / 2, frame.top + frame.height * part)
    stage.press(1)
    stage.release(1)
    stage.ping()


def rest_on(stage, chance):
    """Long enough for a tool tip, or not quite."""
    stage.point_at(chance.choice(TIPPED), *inside(chance))
    stage.pause(chance.choice((0.3, 1, 3)))
    stage.point_at(chance.choice(SURFACES))


def minimise(stage, chance):
    if stage.dialog() is not None or stage.menu() is not None:
        return
    stage.minimise()
    stage.pause(chance.choice((0.1, 1, 5)))
    stage.restore()


def listen(stage, chance):
    """Nothing is touched: short tracks come to their end."""
    stage.pause(chance.choice((4, 8, 20)))


WEIGHTS = {click: 14, click_anywhere: 8, impatient_clicks: 5, drag: 10, move_window: 4, drag_volume: 8, seek: 9,
           both_buttons: 6, lost_release: 4, late_release: 2, change_skin: 5, step: 9, play_or_stop: 8,
           ask_for_file: 8, ask_for_playlist: 3, open_menu: 5, rest_on: 4, minimise: 3, listen: 4}


def some_deed(chance):
    return chance.choices(list(WEIGHTS), list(WEIGHTS.values()))[0]


def some_pause(chance):
    most = chance.choices((0.05, 0.6, 2.5, 8), (20, 45, 28, 7))[0]
    return chance.uniform(0, most)
