// Runs inside KWin, 5.27 and 6, on behalf of Corvane. A line above says where that listens:
// `home` has its bus name, path and interface.

const isSix = typeof workspace.windowList === "function";

// A poll that nobody answers dies after 25 s, without a word.
const pollLife = 27000;
const pollsInVain = 2;
const watchTime = 10000;
const settledTime = 2000;

const maximized = {}; // KWin 5.27 tells states as they change, and has no property for them
const tiles = {}; // that windows left when they were placed
const watched = {}; // windows that were placed a short while ago
const told = {}; // news that Corvane has not asked about yet
let decoration = [0, 0]; // what it adds to a window's size, as seen last
let areasRead = "";
let performed = 0; // number of the command that was carried out last
let lastGlance = "";
let hasBegun = false;
let hasEnded = false;

function timer(interval, isSingleShot, action) {
    const made = new QTimer();
    made.interval = interval;
    made.singleShot = isSingleShot;
    made.timeout.connect(action);
    return made;
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

function find(id) {
    return allWindows().find(window => idOf(window) === id);
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

function stateOf(window) {
    if (!isSix)
        return maximized[idOf(window)] || {};
    const mode = window.maximizeMode;
    return {vertically: Boolean(mode & 1), horizontally: Boolean(mode & 2)};
}

// What the decoration adds to the size of the window inside it.
function marginsOf(window) {
    const frame = window.frameGeometry;
    const client = window.clientGeometry;
    if (client)
        return [frame.width - client.width, frame.height - client.height];
    const isBare = window.noBorder || window.clientSideDecorated || window.fullScreen;
    if (isX11(window))
        return isBare ? [0, 0] : decoration;
    const inside = window.bufferGeometry;
    const margins = [frame.width - inside.width, frame.height - inside.height]
        .map(margin => Math.max(0, margin)); // a shadow is drawn outside the frame
    if (margins[1] > 0)
        decoration = margins;
    return margins;
}

function limitsOf(window) {
    const margins = marginsOf(window);
    const endless = 1000000;
    const least = [window.minSize.width, window.minSize.height];
    const most = [window.maxSize.width, window.maxSize.height];
    return {
        minimum: least.map((size, i) => size > 0 ? size + margins[i] : 0),
        maximum: most.map((size, i) => size > 0 && size < endless ? size + margins[i] : 0)
    };
}

// KWin 6 pays no heed to it.
function incrementOf(window) {
    const unit = isSix ? undefined : window.basicUnit;
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
function hasState(window) {
    const state = stateOf(window);
    return Boolean(window.fullScreen || state.vertically || state.horizontally);
}

function describe(window) {
    const state = stateOf(window);
    const limits = limitsOf(window);
    const longestTitle = 1000;
    return {
        id: idOf(window),
        pid: window.pid,
        desktopFile: String(window.desktopFileName || ""),
        className: String(window.resourceClass || ""),
        instance: isX11(window) ? String(window.resourceName || "") : "",
        title: String(window.caption || "").slice(0, longestTitle),
        frame: rect(window.frameGeometry),
        kind: kindOf(window),
        vertically: Boolean(state.vertically),
        horizontally: Boolean(state.horizontally),
        fullScreen: Boolean(window.fullScreen),
        tiled: Boolean(window.tile),
        minimized: Boolean(window.minimized),
        here: isHere(window),
        listed: !window.skipTaskbar,
        movable: Boolean(window.moveable) || hasState(window),
        resizable: Boolean(window.resizeable) || hasState(window),
        minimum: limits.minimum,
        maximum: limits.maximum,
        increment: incrementOf(window)
    };
}

// One window that goes away just now does not take the others with it.
function describeSafely(window) {
    try {
        return describe(window);
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

function look(isWhole) {
    const active = activeWindow();
    const isFocused = isShown(active) && ["panel", "desktop"].indexOf(kindOf(active)) < 0;
    const windows = (isWhole ? Array.from(allWindows()) : [active]).filter(isShown);
    windows.forEach(marginsOf);
    return {
        windows: windows.map(window => ({window: window, order: window.stackingOrder}))
            .sort((a, b) => b.order - a.order).map(each => describeSafely(each.window))
            .filter(Boolean),
        focused: isFocused ? idOf(active) : "",
        areas: workAreas()
    };
}

function read(isWhole) {
    const seen = look(isWhole);
    areasRead = JSON.stringify(seen.areas);
    told.areas = told.frames = false;
    if (isWhole)
        told.windows = false;
    return seen;
}

// What a placement wants to know before it begins is told as it changes, so that the key need not wait
// for a question. A person who drags the window is waited for.
function glance() {
    const active = activeWindow();
    if (!hasBegun || hasEnded || (active && (active.move || active.resize)))
        return;
    const seen = JSON.stringify(look(false));
    if (seen + performed === lastGlance)
        return;
    lastGlance = seen + performed;
    callDBus(home.service, home.path, home.interface, "Glance", String(performed), seen);
}

const glanceSoon = timer(0, true, glance);

function leaveStates(window) {
    if (window.fullScreen)
        window.fullScreen = false;
    if (!window.tile && hasState(window))
        window.setMaximize(false, false);
}

function leaveTile(window) {
    if (!window.tile)
        return;
    tiles[idOf(window)] = window.tile;
    window.tile = null;
    // KWin 5.27 would tile it again when panels or desktops change, had nothing maximised it.
    window.setMaximize(true, true);
    window.setMaximize(false, false);
}

function frameFor(window, asked) {
    const present = window.frameGeometry;
    const limits = limitsOf(window);
    const steps = incrementOf(window);
    const hasSteps = steps[0] > 0 || steps[1] > 0;
    const size = [within(asked[2], limits, 0), within(asked[3], limits, 1)];
    const clamped = [stepped(size[0], present.width, steps[0], limits.minimum[0]),
        stepped(size[1], present.height, steps[1], limits.minimum[1])];
    const isFixedSize = limits.maximum[0] > 0 && limits.maximum[0] === limits.minimum[0]
        && limits.maximum[1] === limits.minimum[1];
    if (!window.resizeable && !isFixedSize)
        return [asked[0], asked[1], present.width, present.height];
    // KWin 5.27 forgets the position where the limits make the size the one that the window has. A size
    // between two steps it gives, and when the window corrects that, moves it from beside the panels of
    // any display.
    return isFixedSize || hasSteps || (clamped[0] === present.width && clamped[1] === present.height)
        ? [asked[0], asked[1], clamped[0], clamped[1]]
        : asked;
}

function place(window, asked) {
    if (!window.moveable && !hasState(window))
        return;
    leaveTile(window);
    leaveStates(window);
    const frame = frameFor(window, asked);
    watch(window, frame);
    window.frameGeometry = {x: frame[0], y: frame[1], width: frame[2], height: frame[3]};
}

function placeAll(moves) {
    const windows = {};
    allWindows().forEach(window => windows[idOf(window)] = window);
    moves.filter(move => windows[move.id]).forEach(move => place(windows[move.id], move.frame));
}

function enterState(window, state) {
    if (state.fullScreen)
        window.fullScreen = true;
    else if (state.vertically || state.horizontally)
        window.setMaximize(state.vertically, state.horizontally);
    else if (state.tiled && tiles[idOf(window)])
        window.tile = tiles[idOf(window)];
}

function changeState(window, change) {
    watch(window, []); // which frame that brings, is for the client to tell
    change();
}

function raise(window) {
    // KWin 5.27 raises only what it activates.
    const canRaise = typeof workspace.raiseWindow === "function";
    if (canRaise)
        workspace.raiseWindow(window);
    return {raised: canRaise};
}

function bringHere(window) {
    if (isSix)
        window.desktops = [workspace.currentDesktop];
    else
        window.desktop = workspace.currentDesktop;
    if (Array.from(window.activities || []).length > 0)
        window.activities = [workspace.currentActivity];
}

function setBlocked(isBlocked) {
    callDBus("org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel",
        "blockGlobalShortcuts", isBlocked);
}

// Ends by itself, should Corvane do.
const lease = timer(3000, true, () => setBlocked(false));

function block(isBlocked) {
    if (isBlocked !== lease.active)
        setBlocked(isBlocked);
    if (isBlocked)
        lease.start();
    else
        lease.stop();
}

const deeds = {
    read: request => read(request.whole),
    place: request => placeAll(request.moves),
    block: request => block(request.blocked),
    nothing: () => undefined
};
const deedsToOne = {
    leaveStates: window => changeState(window, () => leaveStates(window)),
    enterState: (window, request) => changeState(window, () => enterState(window, request.state)),
    raise: raise,
    activate: setActive,
    close: window => window.closeWindow(),
    bringHere: bringHere,
    keepAbove: window => window.keepAbove = true
};

function perform(request) {
    if (deeds[request.deed])
        return deeds[request.deed](request);
    const window = find(request.id);
    if (!window)
        return {gone: true};
    return deedsToOne[request.deed](window, request);
}

function tell(news) {
    if (told[news] || hasEnded)
        return;
    told[news] = true;
    callDBus(home.service, home.path, home.interface, "Changed", news);
}

function tellWindows() {
    tell("windows");
    glanceSoon.start();
}

// KWin works areas out a moment after what changes them, and does not say when.
const areasReview = timer(250, true, () => {
    if (JSON.stringify(workAreas()) !== areasRead)
        tell("areas");
    glance();
});

function tellAreas() {
    tell("areas");
    glanceSoon.start();
    areasReview.start();
}

function unwatch(id) {
    const entry = watched[id];
    delete watched[id];
    if (entry)
        entry.window.frameGeometryChanged.disconnect(entry.follow);
}

function isSettled(entry, now) {
    return now - entry.began > watchTime
        || (now - entry.changed > settledTime
            && JSON.stringify(rect(entry.window.frameGeometry)) === entry.frame);
}

const watchReview = timer(settledTime, false, () => {
    const now = Date.now();
    Object.keys(watched).filter(id => isSettled(watched[id], now)).forEach(unwatch);
    if (Object.keys(watched).length === 0)
        watchReview.stop();
});

function watch(window, frame) {
    const id = idOf(window);
    unwatch(id);
    const now = Date.now();
    const entry = {window: window, began: now, changed: now, frame: JSON.stringify(frame)};
    entry.follow = () => {
        // A person who drags it knows where it is.
        if (window.move || window.resize)
            return unwatch(id);
        entry.changed = Date.now();
        tell("frames");
    };
    window.frameGeometryChanged.connect(entry.follow);
    watched[id] = entry;
    if (!watchReview.active)
        watchReview.start();
}

function setMaximized(window, vertically, horizontally) {
    const state = {vertically: Boolean(vertically), horizontally: Boolean(horizontally)};
    maximized[idOf(window)] = state;
    tellWindows();
}

function connectAll(object, names, action) {
    names.filter(name => object[name]).forEach(name => object[name].connect(action));
}

function follow(window, onKnown) {
    connectAll(window, ["windowClassChanged", "desktopFileNameChanged", "minimizedChanged",
        "fullScreenChanged", "maximizedChanged", "tileChanged", "quickTileModeChanged",
        "desktopChanged", "desktopsChanged", "activitiesChanged", "skipTaskbarChanged",
        "hiddenChanged"], tellWindows);
    connectAll(window, ["frameGeometryChanged", "clientFinishUserMovedResized",
        "interactiveMoveResizeFinished"], () => {
        if (window.active)
            glanceSoon.start();
    });
    if (["panel", "desktop"].indexOf(kindOf(window)) >= 0)
        connectAll(window, ["frameGeometryChanged", "hiddenChanged"], tellAreas);
    if (isSix)
        return onKnown();
    window.clientMaximizedStateChanged.connect(
        (_, horizontally, vertically) => setMaximized(window, vertically, horizontally));
    callDBus("org.kde.KWin", "/KWin", "org.kde.KWin", "getWindowInfo", idOf(window), info => {
        if (info.maximizeVertical || info.maximizeHorizontal)
            setMaximized(window, info.maximizeVertical, info.maximizeHorizontal);
        onKnown();
    });
}

function added(window) {
    if (!isShown(window))
        return;
    follow(window, tellWindows);
    tellWindows();
    if (["panel", "desktop"].indexOf(kindOf(window)) >= 0)
        tellAreas();
}

function removed(window) {
    const id = idOf(window);
    [maximized, tiles, watched].forEach(known => delete known[id]);
    tellWindows();
    if (window.dock || isFixed(window))
        tellAreas();
}

let unanswered = 0;
// A poll that KWin was too busy to send, or Corvane to answer, is sent again. Without Corvane, KWin
// is rid of this script.
const watchdog = timer(pollLife, true, () => {
    if (++unanswered < pollsInVain)
        return poll("", "");
    hasEnded = true;
    if (lease.active)
        setBlocked(false);
    callDBus("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "unloadScript", home.name);
});

function poll(number, answer) {
    watchdog.start();
    callDBus(home.service, home.path, home.interface, "Poll", number, answer, command => {
        unanswered = 0;
        let number = "";
        let answer = {};
        try {
            const request = JSON.parse(command);
            number = request.number;
            answer = perform(request) || {};
            performed = Number(number) || performed;
        } catch (error) {
            answer = {error: String(error)};
        }
        poll(number, JSON.stringify(answer));
    });
}

connectAll(workspace, ["windowAdded", "clientAdded"], added);
connectAll(workspace, ["windowRemoved", "clientRemoved"], removed);
connectAll(workspace, ["windowActivated", "clientActivated", "currentDesktopChanged",
    "currentActivityChanged"], () => {
    glance();
    tellWindows();
});
connectAll(workspace, ["screensChanged", "numberScreensChanged", "screenResized",
    "virtualScreenGeometryChanged", "currentDesktopChanged"], tellAreas);

function begin() {
    if (!hasBegun)
        poll("", "");
    hasBegun = true;
}

const patience = timer(500, true, begin);
patience.start();
const present = Array.from(allWindows()).filter(isShown);
let unknown = present.length + 1;
const onKnown = () => {
    if (--unknown === 0)
        begin();
};
present.forEach(window => follow(window, onKnown));
onKnown();
