// Runs inside KWin, 5.27 and 6, on behalf of Corvane. A line above says where that listens:
// `home` has its bus name, path and interface.

const isSix = typeof workspace.windowList === "function";

// A poll that nobody answers dies after 25 s, without a word.
const pollLife = 27000;
const pollsInVain = 2;

const known = new Map(); // what is known of each window, by its identifier
const changed = new Set(); // of those: what Corvane has yet to be told of
const moved = new Set(); // of those: whose frame alone it has yet to be told
let hasOrderChanged = true;
let lastFocused = null;
let lastAreas = "";
let decoration = [0, 0]; // what it adds to a window's size, as seen last
let hasBegun = false;
let hasEnded = false;
let isPerforming = false; // a command, whose outcome will tell what has changed

function timer(interval, isSingleShot, action) {
    const made = new QTimer();
    made.interval = interval;
    made.singleShot = isSingleShot;
    made.timeout.connect(action);
    return made;
}

// Runs the action once the present event has been dealt with, but leaves so many milliseconds between two
// of its runs.
function paced(spacing, action) {
    let last = 0;
    const pause = timer(0, true, () => {
        last = Date.now();
        action();
    });
    return () => {
        if (pause.active || isPerforming)
            return;
        pause.interval = Math.min(spacing, Math.max(0, last + spacing - Date.now()));
        pause.start();
    };
}

function idOf(window) {
    return String(window.internalId);
}

function allWindows() {
    return isSix ? workspace.windowList() : workspace.clientList();
}

function activeWindow() {
    return isSix ? workspace.activeWindow : workspace.activeClient;
}

function setActive(window) {
    if (isSix)
        workspace.activeWindow = window;
    else
        workspace.activeClient = window;
}

function rect(geometry) {
    return [geometry.x, geometry.y, geometry.width, geometry.height];
}

// Whether it is a window that a person sees as one.
function isShown(window) {
    const others = ["deleted", "popupWindow", "popupMenu", "dropdownMenu", "comboBox", "tooltip",
        "notification", "criticalNotification", "onScreenDisplay", "appletPopup", "dndIcon",
        "inputMethod", "outline"];
    return window && window.managed !== false && !others.some(kind => window[kind])
        && String(window.resourceClass) !== "xwaylandvideobridge";
}

function isX11(window) {
    return window.windowId !== undefined || window.basicUnit !== undefined;
}

// A layer-shell surface says that it is a normal window.
function isFixed(window) {
    return !window.moveable && window.skipTaskbar && !window.fullScreen && !isX11(window);
}

function kindOf(window) {
    const bottomLayer = 0;
    if (window.desktopWindow || (isFixed(window) && window.layer === bottomLayer))
        return "desktop";
    if (window.dock || isFixed(window))
        return "panel";
    // On Wayland there are no other types, but some windows have a parent.
    return window.normalWindow && !window.transientFor ? "standard" : "dialog";
}

// KWin 5.27 tells the state as it changes, and has no property for it.
function stateOf(each) {
    if (!isSix)
        return each.maximized;
    const mode = each.window.maximizeMode;
    return {vertically: Boolean(mode & 1), horizontally: Boolean(mode & 2)};
}

// What the decoration adds to the size of the window inside it.
function marginsOf(each) {
    const window = each.window;
    const frame = window.frameGeometry;
    const client = window.clientGeometry;
    if (client)
        return [frame.width - client.width, frame.height - client.height];
    const isBare = window.noBorder || window.clientSideDecorated || window.fullScreen;
    if (each.isX11)
        return isBare ? [0, 0] : decoration;
    const inside = window.bufferGeometry;
    const margins = [frame.width - inside.width, frame.height - inside.height]
        .map(margin => Math.max(0, margin)); // a shadow is drawn outside the frame
    if (margins[1] > 0 && String(margins) !== String(decoration)) {
        decoration = margins;
        known.forEach(other => {
            if (other.isX11)
                changed.add(other);
        });
    }
    return margins;
}

function least(size, margin) {
    return size > 0 ? size + margin : 0;
}

function most(size, margin) {
    const endless = 1000000;
    return size < endless ? least(size, margin) : 0;
}

function limitsOf(each) {
    const [width, height] = each.margins;
    const smallest = each.window.minSize;
    const largest = each.window.maxSize;
    return {
        minimum: [least(smallest.width, width), least(smallest.height, height)],
        maximum: [most(largest.width, width), most(largest.height, height)]
    };
}

// KWin 6 pays no heed to it.
function incrementOf(each) {
    const unit = isSix || !each.isX11 ? undefined : each.window.basicUnit;
    return unit ? [unit.width, unit.height].map(step => step > 1 ? step : 0) : [0, 0];
}

function within(size, limits, i) {
    const most = limits.maximum[i];
    return Math.max(most > 0 ? Math.min(size, most) : size, limits.minimum[i]);
}

// The largest length up to this one that lies whole steps from the present one, but not below the least.
function stepped(length, present, step, least) {
    if (step === 0)
        return length;
    const most = present + Math.floor((length - present) / step) * step;
    return most < least ? most + Math.ceil((least - most) / step) * step : most;
}

function isHere(window) {
    const desktop = workspace.currentDesktop;
    const isOnDesktop = window.onAllDesktops || (isSix
        ? Array.from(window.desktops).some(each => each.id === desktop.id)
        : window.desktop === desktop);
    const activities = Array.from(window.activities || []);
    return isOnDesktop && !window.hidden
        && (activities.length === 0 || activities.indexOf(workspace.currentActivity) >= 0);
}

// While its state lasts, which a placement ends, a window is neither movable nor resizable.
function hasState(each) {
    const state = stateOf(each);
    return Boolean(each.window.fullScreen || state.vertically || state.horizontally);
}

function describe(each) {
    const window = each.window;
    const state = stateOf(each);
    const limits = limitsOf(each);
    const isInState = hasState(each);
    const longestTitle = 1000;
    const halfCharacter = /[\ud800-\udbff]$/;
    return {
        id: each.id,
        pid: window.pid,
        desktopFile: String(window.desktopFileName || ""),
        className: String(window.resourceClass || ""),
        instance: each.isX11 ? String(window.resourceName || "") : "",
        title: String(window.caption || "").slice(0, longestTitle).replace(halfCharacter, ""),
        frame: rect(window.frameGeometry),
        kind: kindOf(window),
        vertically: Boolean(state.vertically),
        horizontally: Boolean(state.horizontally),
        fullScreen: Boolean(window.fullScreen),
        tiled: Boolean(window.tile),
        minimized: Boolean(window.minimized),
        here: isHere(window),
        listed: !window.skipTaskbar,
        movable: Boolean(window.moveable) || isInState,
        resizable: Boolean(window.resizeable) || isInState,
        minimum: limits.minimum,
        maximum: limits.maximum,
        increment: incrementOf(each)
    };
}

// One window that goes away just now does not take the others with it.
function describeSafely(each) {
    try {
        return describe(each);
    } catch (error) {
        return null;
    }
}

function workAreas() {
    const desktop = workspace.currentDesktop;
    const screens = isSix ? workspace.screens : Array(workspace.numScreens).fill(0);
    return Array.from(screens).map((each, i) => isSix ? each : i).map(screen => ({
        output: rect(workspace.clientArea(KWin.ScreenArea, screen, desktop)),
        visible: rect(workspace.clientArea(KWin.MaximizeArea, screen, desktop))
    }));
}

function frontToBack() {
    return Array.from(known.values()).filter(each => isShown(each.window))
        .map(each => ({id: each.id, order: each.window.stackingOrder}))
        .sort((a, b) => b.order - a.order).map(each => each.id);
}

function tellAll() {
    known.forEach(each => changed.add(each));
    hasOrderChanged = true;
}

function changes() {
    const told = {};
    const active = activeWindow();
    const focused = active ? idOf(active) : "";
    const areas = workAreas();
    changed.forEach(each => each.margins = marginsOf(each));
    if (changed.size > 0)
        told.windows = Array.from(changed).map(describeSafely).filter(Boolean);
    const frames = Array.from(moved).filter(each => !changed.has(each));
    if (frames.length > 0)
        told.frames = frames.map(each => [each.id].concat(rect(each.window.frameGeometry)));
    if (hasOrderChanged)
        told.order = frontToBack();
    if (focused !== lastFocused)
        told.focused = focused;
    if (JSON.stringify(areas) !== lastAreas)
        told.areas = areas;
    changed.clear();
    moved.clear();
    hasOrderChanged = false;
    lastFocused = focused;
    lastAreas = JSON.stringify(areas);
    return told;
}

// What has changed since Corvane was told last; empty when nothing has. What goes away just now has its
// next chance soon.
function news() {
    try {
        const told = changes();
        return Object.keys(told).length > 0 ? JSON.stringify(told) : "";
    } catch (error) {
        tellAll();
        tellAtLeisure();
        return "";
    }
}

// Corvane knows the desk from what it is told, so that no key need wait for a question.
function tell() {
    if (!hasBegun || hasEnded)
        return;
    const text = news();
    if (text !== "")
        callDBus(home.service, home.path, home.interface, "News", text);
}

// What others may have change over and over costs no more than this.
const tellSoon = paced(2, tell);
const tellAtLeisure = paced(100, tell);

function leaveStates(each) {
    const window = each.window;
    if (window.fullScreen)
        window.fullScreen = false;
    if (!window.tile && hasState(each))
        window.setMaximize(false, false);
}

function leaveTile(each) {
    const window = each.window;
    if (!window.tile)
        return;
    each.tile = window.tile;
    window.tile = null;
    // KWin 5.27 would tile it again when panels or desktops change, had nothing maximised it.
    window.setMaximize(true, true);
    window.setMaximize(false, false);
}

// Whether no limit can be in the way, whatever is decorated by now.
function mayHave(each, width, height) {
    const smallest = each.window.minSize;
    const largest = each.window.maxSize;
    return width >= smallest.width + Math.max(each.margins[0], decoration[0])
        && height >= smallest.height + Math.max(each.margins[1], decoration[1])
        && width <= largest.width && height <= largest.height;
}

function frameFor(each, asked) {
    const window = each.window;
    if (!each.isX11 && mayHave(each, asked[2], asked[3]) && window.resizeable)
        return asked;
    each.margins = marginsOf(each);
    const present = window.frameGeometry;
    const limits = limitsOf(each);
    const steps = incrementOf(each);
    const hasSteps = steps[0] > 0 || steps[1] > 0;
    const size = [stepped(within(asked[2], limits, 0), present.width, steps[0], limits.minimum[0]),
        stepped(within(asked[3], limits, 1), present.height, steps[1], limits.minimum[1])];
    const isFixedSize = limits.maximum[0] > 0 && limits.maximum[0] === limits.minimum[0]
        && limits.maximum[1] === limits.minimum[1];
    if (!window.resizeable && !isFixedSize)
        return [asked[0], asked[1], present.width, present.height];
    // KWin 5.27 forgets the position where the limits make the size the one that the window has. A size
    // between two steps it gives, and when the window corrects that, moves it from beside the panels of
    // any display.
    return isFixedSize || hasSteps || (size[0] === present.width && size[1] === present.height)
        ? [asked[0], asked[1], size[0], size[1]]
        : asked;
}

function place(each, asked) {
    const window = each.window;
    const isInState = hasState(each);
    if (!window.moveable && !isInState)
        return;
    if (isInState || window.tile) {
        leaveTile(each);
        leaveStates(each);
    }
    const frame = frameFor(each, asked);
    window.frameGeometry = {x: frame[0], y: frame[1], width: frame[2], height: frame[3]};
}

// A move: the window's identifier, x, y, width, height.
function placeAll(moves) {
    moves.forEach(move => {
        const each = known.get(move[0]);
        if (each)
            place(each, move.slice(1));
    });
}

function enterState(each, state) {
    const window = each.window;
    if (state.fullScreen)
        window.fullScreen = true;
    else if (state.vertically || state.horizontally)
        window.setMaximize(state.vertically, state.horizontally);
    else if (state.tiled && each.tile)
        window.tile = each.tile;
}

// KWin 5.27 raises only what it activates.
const canRaise = typeof workspace.raiseWindow === "function";

function raise(each) {
    if (canRaise)
        workspace.raiseWindow(each.window);
}

function bringToFront(ids) {
    const backToFront = ids.filter(id => known.has(id)).map(id => known.get(id));
    const last = backToFront.pop();
    backToFront.forEach(each => canRaise ? raise(each) : setActive(each.window));
    if (last)
        setActive(last.window);
}

function bringHere(window) {
    if (isSix)
        window.desktops = [workspace.currentDesktop];
    else
        window.desktop = workspace.currentDesktop;
    if (Array.from(window.activities || []).length > 0)
        window.activities = [workspace.currentActivity];
}

const deeds = {
    tell: tellAll,
    place: request => placeAll(request.moves),
    bringToFront: request => bringToFront(request.ids),
    nothing: () => undefined
};
const deedsToOne = {
    leaveStates: leaveStates,
    enterState: (each, request) => enterState(each, request.state),
    raise: raise,
    close: each => each.window.closeWindow(),
    bringHere: each => bringHere(each.window),
    keepAbove: each => each.window.keepAbove = true
};

function perform(request) {
    if (deeds[request.deed])
        return deeds[request.deed](request);
    if (!known.has(request.id))
        return {gone: true};
    return deedsToOne[request.deed](known.get(request.id), request);
}

// KWin works areas out a moment after what changes them, and does not say when.
const areasReview = timer(250, true, tell);

function tellAreas() {
    tellSoon();
    areasReview.start();
}

function connectAll(object, names, action) {
    names.filter(name => object[name]).forEach(name => object[name].connect(action));
}

// A window that goes away may change on its way.
function noteIn(untold, each) {
    if (known.has(each.id))
        untold.add(each);
}

function follow(each, onKnown) {
    const window = each.window;
    const isBesideOthers = ["panel", "desktop"].indexOf(kindOf(window)) >= 0;
    const setMaximized = (vertically, horizontally) => {
        each.maximized = {vertically: Boolean(vertically), horizontally: Boolean(horizontally)};
        noteIn(changed, each);
        tellSoon();
    };
    connectAll(window, ["windowClassChanged", "desktopFileNameChanged", "minimizedChanged",
        "fullScreenChanged", "maximizedChanged", "tileChanged", "quickTileModeChanged",
        "desktopChanged", "desktopsChanged", "activitiesChanged", "skipTaskbarChanged",
        "hiddenChanged", "decorationChanged", "transientChanged"], () => {
        noteIn(changed, each);
        tellSoon();
        if (isBesideOthers)
            tellAreas();
    });
    connectAll(window, ["captionChanged"], () => {
        noteIn(changed, each);
        tellAtLeisure();
    });
    connectAll(window, ["frameGeometryChanged", "clientFinishUserMovedResized",
        "interactiveMoveResizeFinished"], () => {
        noteIn(moved, each);
        if (window.move || window.resize)
            tellAtLeisure();
        else
            tellSoon();
        if (isBesideOthers)
            tellAreas();
    });
    connectAll(window, ["stackingOrderChanged"], () => {
        hasOrderChanged = true;
        tellSoon();
    });
    if (isSix)
        return onKnown();
    window.clientMaximizedStateChanged.connect(
        (_, horizontally, vertically) => setMaximized(vertically, horizontally));
    callDBus("org.kde.KWin", "/KWin", "org.kde.KWin", "getWindowInfo", each.id, info => {
        if (info.maximizeVertical || info.maximizeHorizontal)
            setMaximized(info.maximizeVertical, info.maximizeHorizontal);
        onKnown();
    });
}

function meet(window, onKnown) {
    const each = {id: idOf(window), window: window, isX11: isX11(window), maximized: {}, tile: null,
        margins: [0, 0]};
    known.set(each.id, each);
    changed.add(each);
    hasOrderChanged = true;
    follow(each, onKnown);
}

function added(window) {
    if (!isShown(window))
        return;
    meet(window, () => undefined);
    tellAreas();
}

function removed(window) {
    const each = known.get(idOf(window));
    [changed, moved].forEach(untold => untold.delete(each));
    known.delete(idOf(window));
    hasOrderChanged = true;
    tellAreas();
}

let unanswered = 0;
// A poll that KWin was too busy to send, or Corvane to answer, is sent again. Without Corvane, KWin
// is rid of this script.
const watchdog = timer(pollLife, true, () => {
    if (++unanswered < pollsInVain)
        return poll("", "");
    hasEnded = true;
    callDBus("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "unloadScript", home.name);
});

function answerTo(command) {
    isPerforming = true;
    try {
        return perform(command) || {};
    } catch (error) {
        return {error: String(error)};
    } finally {
        isPerforming = false;
    }
}

function poll(number, answer) {
    watchdog.start();
    callDBus(home.service, home.path, home.interface, "Poll", number, answer, news(),
        (next, text) => {
            unanswered = 0;
            const command = JSON.parse(text);
            pollNext = () => poll(next, outcome);
            const outcome = JSON.stringify(answerTo(command));
            if (command.deed === "place")
                afterSizes.start();
            else
                pollNext();
        });
}

let pollNext = () => undefined;
// Once KWin has handed the new sizes out, for which the windows wait.
const afterSizes = timer(1, true, () => pollNext());

connectAll(workspace, ["windowAdded", "clientAdded"], added);
connectAll(workspace, ["windowRemoved", "clientRemoved"], removed);
connectAll(workspace, ["windowActivated", "clientActivated"], window => {
    const each = window ? known.get(idOf(window)) : undefined;
    if (each)
        changed.add(each);
    if (!isPerforming)
        tell();
});
connectAll(workspace, ["currentDesktopChanged", "currentActivityChanged"], () => {
    tellAll();
    tell();
    areasReview.start();
});
connectAll(workspace, ["screensChanged", "numberScreensChanged", "screenResized",
    "virtualScreenGeometryChanged"], tellAreas);

function begin() {
    if (hasBegun)
        return;
    hasBegun = true;
    poll("", "");
}

const patience = timer(500, true, begin);
patience.start();
const present = Array.from(allWindows()).filter(isShown);
let unknown = present.length + 1;
const onKnown = () => {
    if (--unknown === 0)
        begin();
};
present.forEach(window => meet(window, onKnown));
onKnown();
