// Lets Corvane, and no other program, see and move windows. Nothing runs here but what Corvane asks for,
// while it runs.

// Where Corvane listens on the session bus, and where it is listened to.
const home = {
    name: 'app.corvane.Desk',
    path: '/app/corvane/Agent',
    interface: 'app.corvane.Agent',
};
const ownPath = '/app/corvane/Extension';
const ownInterface = `<node>
  <interface name="app.corvane.Extension">
    <method name="Do">
      <arg type="s" direction="in" name="number"/>
      <arg type="s" direction="in" name="command"/>
    </method>
  </interface>
</node>`;

const longestTitle = 1000;
// What others may have change over and over costs no more than this, in milliseconds.
const soon = 2;
const atLeisure = 100;
// A block of all shortcuts ends by itself, should Corvane do.
const longestBlock = 3000;

const kinds = new Map([
    [Meta.WindowType.NORMAL, 'standard'],
    [Meta.WindowType.DIALOG, 'dialog'],
    [Meta.WindowType.MODAL_DIALOG, 'dialog'],
    [Meta.WindowType.UTILITY, 'dialog'],
    [Meta.WindowType.SPLASHSCREEN, 'dialog'],
    [Meta.WindowType.TOOLBAR, 'dialog'],
    [Meta.WindowType.MENU, 'dialog'],
    [Meta.WindowType.DOCK, 'panel'],
    [Meta.WindowType.DESKTOP, 'desktop'],
]);

function rect(geometry) {
    return [geometry.x, geometry.y, geometry.width, geometry.height];
}

// Some methods have other names in GNOME 49.
function stateOf(window) {
    if (!window.get_maximized)
        return {horizontally: window.maximized_horizontally, vertically: window.maximized_vertically};
    const flags = window.get_maximized();
    return {
        horizontally: Boolean(flags & Meta.MaximizeFlags.HORIZONTAL),
        vertically: Boolean(flags & Meta.MaximizeFlags.VERTICAL),
    };
}

function maximize(window, horizontally, vertically) {
    const flags = (horizontally ? Meta.MaximizeFlags.HORIZONTAL : 0)
        | (vertically ? Meta.MaximizeFlags.VERTICAL : 0);
    if (window.set_maximize_flags)
        window.set_maximize_flags(flags);
    else
        window.maximize(flags);
}

function leaveStates(each) {
    const {window} = each;
    if (window.is_fullscreen())
        window.unmake_fullscreen();
    const {horizontally, vertically} = stateOf(window);
    if (!horizontally && !vertically)
        return;
    each.column = horizontally ? null : window.get_frame_rect();
    if (window.set_unmaximize_flags)
        window.unmaximize();
    else
        window.unmaximize(Meta.MaximizeFlags.BOTH);
}

// The position alone comes first: Mutter forgets it where the window's limits change the size.
function moveResize(window, x, y, width, height) {
    window.move_frame(true, x, y);
    window.move_resize_frame(true, x, y, width, height);
}

function place(each, frame) {
    leaveStates(each);
    moveResize(each.window, ...frame);
}

// A window at one half of its display is maximised vertically. Nothing puts it there again as Mutter did, but
// it may stand where it stood.
function enterState(each, state) {
    const {window, column} = each;
    if (state.fullScreen) {
        window.make_fullscreen();
    } else if (state.horizontally || state.vertically) {
        if (column && !state.horizontally)
            moveResize(window, ...rect(column));
        maximize(window, state.horizontally, state.vertically);
    }
}

function activeWorkspace() {
    return global.workspace_manager.get_active_workspace();
}

function now() {
    return global.display.get_current_time_roundtrip();
}

function kindOf(window) {
    const kind = kinds.get(window.get_window_type());
    return kind === 'standard' && window.get_transient_for() ? 'dialog' : kind;
}

// A window without a size has yet to draw itself.
function isShown(window) {
    return kinds.has(window.get_window_type()) && !window.is_override_redirect()
        && window.get_frame_rect().width > 0;
}

function describe(id, window) {
    const state = stateOf(window);
    const isX11 = window.get_client_type() === Meta.WindowClientType.X11;
    const className = window.get_wm_class() || '';
    const applicationId = window.get_sandboxed_app_id()
        || (isX11 ? window.get_gtk_application_id() : className);
    const halfCharacter = /[\ud800-\udbff]$/;
    const hasState = window.is_fullscreen() || state.horizontally || state.vertically;
    return {
        id,
        pid: Math.max(0, window.get_pid()),
        desktopFile: applicationId || '',
        className,
        instance: isX11 ? window.get_wm_class_instance() || '' : '',
        title: (window.get_title() || '').slice(0, longestTitle).replace(halfCharacter, ''),
        frame: rect(window.get_frame_rect()),
        kind: kindOf(window),
        horizontally: state.horizontally,
        vertically: state.vertically,
        fullScreen: window.is_fullscreen(),
        tiled: false,
        minimized: window.minimized,
        here: window.located_on_workspace(activeWorkspace()),
        listed: !window.is_skip_taskbar(),
        movable: window.allows_move() || hasState,
        resizable: window.allows_resize() || hasState,
    };
}

function workAreas() {
    const workspace = activeWorkspace();
    return Array.from({length: global.display.get_n_monitors()}, (_, monitor) => ({
        output: rect(global.display.get_monitor_geometry(monitor)),
        visible: rect(workspace.get_work_area_for_monitor(monitor)),
    }));
}

function monitorManager() {
    return global.backend.get_monitor_manager();
}

// Runs an action once the present event has been dealt with, but leaves so many milliseconds between two
// of its runs.
class Paced {
    constructor(spacing, action) {
        this._spacing = spacing;
        this._action = action;
        this._source = 0;
        this._last = 0;
    }

    schedule() {
        if (this._source)
            return;
        const wait = Math.min(this._spacing, Math.max(0, this._last + this._spacing - Date.now()));
        this._source = GLib.timeout_add(GLib.PRIORITY_DEFAULT, wait, () => {
            this._source = 0;
            this._last = Date.now();
            this._action();
            return GLib.SOURCE_REMOVE;
        });
    }

    cancel() {
        if (this._source)
            GLib.source_remove(this._source);
        this._source = 0;
    }
}

// The windows, keys and work areas for as long as one process is Corvane.
class Desk {
    constructor(owner) {
        this._owner = owner;
        this._windows = new Map(); // by identifier
        this._changed = new Set(); // identifiers of what Corvane has yet to be told of
        this._moved = new Set(); // of those whose frame alone it has yet to be told
        this._hasOrderChanged = true;
        this._lastFocused = null;
        this._lastAreas = '';
        this._isPerforming = false; // a command, whose outcome will tell what has changed
        this._isDragging = false;
        this._grabs = new Set();
        this._isBlocking = false;
        this._connections = [];
        this._tellSoon = new Paced(soon, () => this._tell());
        this._tellAtLeisure = new Paced(atLeisure, () => this._tell());
        this._blockEnd = 0;
        this._object = Gio.DBusExportedObject.wrapJSObject(ownInterface, this);
        this._object.export(Gio.DBus.session, ownPath);
        this._follow();
        global.get_window_actors().forEach(actor => this._meet(actor.meta_window));
        this._say('Poll', ['', '', this._news()]);
    }

    destroy() {
        this._object.unexport();
        this._tellSoon.cancel();
        this._tellAtLeisure.cancel();
        this._setBlocking(false);
        this._connections.forEach(([object, id]) => object.disconnect(id));
        this._windows.forEach(({window, signals}) => signals.forEach(id => window.disconnect(id)));
        this._grabs.forEach(action => this._ungrab(action));
        this._windows.clear();
        this._say('Gone', []);
    }

    _on(object, signal, action) {
        this._connections.push([object, object.connect(signal, action)]);
    }

    _follow() {
        const display = global.display;
        this._on(display, 'window-created', (_, window) => this._meet(window));
        this._on(display, 'restacked', () => this._orderChanged());
        this._on(display, 'notify::focus-window', () => this._tellUnlessPerforming());
        this._on(display, 'workareas-changed', () => this._tellSoon.schedule());
        this._on(display, 'grab-op-begin', () => this._isDragging = true);
        this._on(display, 'grab-op-end', () => {
            this._isDragging = false;
            this._tellSoon.schedule();
        });
        this._on(display, 'accelerator-activated', (_, action) => {
            if (this._grabs.has(action))
                this._say('Pressed', [String(action)]);
        });
        this._on(monitorManager(), 'monitors-changed', () => this._tellSoon.schedule());
        this._on(global.workspace_manager, 'active-workspace-changed', () => {
            this._tellAll();
            this._tellUnlessPerforming();
        });
        this._on(global.window_manager, 'filter-keybinding', () => this._isBlocking);
    }

    _meet(window) {
        if (window.is_override_redirect())
            return;
        const id = String(window.get_id());
        if (this._windows.has(id))
            return;
        const on = (signal, action) => window.connect(signal, action);
        const changed = () => this._note(this._changed, id, this._tellSoon);
        const moved = () => {
            const {isTold} = this._windows.get(id);
            // With its first size it is shown.
            this._hasOrderChanged ||= !isTold;
            this._note(isTold ? this._moved : this._changed, id,
                this._isDragging ? this._tellAtLeisure : this._tellSoon);
        };
        const signals = ['notify::minimized', 'notify::fullscreen', 'notify::maximized-horizontally',
            'notify::maximized-vertically', 'notify::wm-class', 'notify::gtk-application-id',
            'notify::skip-taskbar', 'notify::window-type', 'notify::resizeable', 'workspace-changed']
            .map(signal => on(signal, changed));
        signals.push(on('position-changed', moved), on('size-changed', moved),
            on('notify::title', () => this._note(this._changed, id, this._tellAtLeisure)),
            on('unmanaging', () => this._forget(id)));
        this._windows.set(id, {window, signals, isTold: false, column: null});
        this._hasOrderChanged = true;
        changed();
    }

    _forget(id) {
        const {window, signals} = this._windows.get(id);
        signals.forEach(signal => window.disconnect(signal));
        this._windows.delete(id);
        [this._changed, this._moved].forEach(untold => untold.delete(id));
        this._orderChanged();
    }

    _note(untold, id, telling) {
        untold.add(id);
        if (!this._isPerforming)
            telling.schedule();
    }

    _orderChanged() {
        this._hasOrderChanged = true;
        if (!this._isPerforming)
            this._tellSoon.schedule();
    }

    _tellAll() {
        this._windows.forEach((_, id) => this._changed.add(id));
        this._hasOrderChanged = true;
        this._lastFocused = null;
        this._lastAreas = '';
    }

    _frontToBack() {
        const windows = Array.from(this._windows.values(), each => each.window).filter(isShown);
        return global.display.sort_windows_by_stacking(windows).reverse()
            .map(window => String(window.get_id()));
    }

    // What has changed since Corvane was told last; empty when nothing has.
    _news() {
        const told = {};
        const focus = global.display.focus_window;
        const focused = focus ? String(focus.get_id()) : '';
        const areas = workAreas();
        const windows = [];
        const frames = [];
        this._changed.forEach(id => {
            const each = this._windows.get(id);
            if (!isShown(each.window))
                return;
            each.isTold = true;
            windows.push(describe(id, each.window));
        });
        this._moved.forEach(id => {
            if (!this._changed.has(id))
                frames.push([id, ...rect(this._windows.get(id).window.get_frame_rect())]);
        });
        if (windows.length > 0)
            told.windows = windows;
        if (frames.length > 0)
            told.frames = frames;
        if (this._hasOrderChanged)
            told.order = this._frontToBack();
        if (focused !== this._lastFocused)
            told.focused = focused;
        if (JSON.stringify(areas) !== this._lastAreas)
            told.areas = areas;
        this._changed.clear();
        this._moved.clear();
        this._hasOrderChanged = false;
        this._lastFocused = focused;
        this._lastAreas = JSON.stringify(areas);
        return Object.keys(told).length > 0 ? JSON.stringify(told) : '';
    }

    _tell() {
        const news = this._news();
        if (news !== '')
            this._say('News', [news]);
    }

    _tellUnlessPerforming() {
        if (!this._isPerforming)
            this._tell();
    }

    // Nobody waits for an answer.
    _say(method, texts) {
        const message = Gio.DBusMessage.new_method_call(
            this._owner, home.path, home.interface, method);
        message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED);
        message.set_body(new GLib.Variant(`(${'s'.repeat(texts.length)})`, texts));
        Gio.DBus.session.send_message(message, Gio.DBusSendMessageFlags.NONE);
    }

    DoAsync([number, command], invocation) {
        if (invocation.get_sender() !== this._owner) {
            invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
                'Only Corvane is listened to.');
            return;
        }
        invocation.return_value(null);
        let outcome;
        this._isPerforming = true;
        try {
            outcome = this._perform(JSON.parse(command));
        } catch (error) {
            outcome = {error: String(error)};
        }
        this._isPerforming = false;
        this._say('Poll', [number, JSON.stringify(outcome || {}), this._news()]);
    }

    _perform(request) {
        switch (request.deed) {
        case 'tell':
            return this._tellAll();
        case 'place':
            return request.moves.forEach(([id, ...frame]) => {
                const each = this._windows.get(id);
                if (each)
                    place(each, frame.map(Math.round));
            });
        case 'bringToFront':
            return this._bringToFront(request.ids);
        case 'grab':
            return {action: this._grab(request.accelerator)};
        case 'ungrab':
            return this._ungrab(request.action);
        case 'block':
            return this._setBlocking(request.blocked);
        case 'nothing':
            return undefined;
        default:
            return this._performOn(this._windows.get(request.id), request);
        }
    }

    _performOn(each, request) {
        if (!each)
            return {gone: true};
        const {window} = each;
        switch (request.deed) {
        case 'leaveStates':
            return leaveStates(each);
        case 'enterState':
            return enterState(each, request.state);
        case 'raise':
            return window.raise();
        case 'close':
            return window.delete(now());
        case 'bringHere':
            return window.change_workspace(activeWorkspace());
        case 'keepAbove':
            return window.make_above();
        default:
            return {error: 'unknown'};
        }
    }

    _bringToFront(ids) {
        const windows = ids.map(id => this._windows.get(id)?.window).filter(Boolean);
        const last = windows.pop();
        windows.forEach(window => window.raise());
        if (last)
            Main.activateWindow(last, now());
    }

    // 0 where the combination belongs to somebody, or is none.
    _grab(accelerator) {
        const action = global.display.grab_accelerator(
            accelerator, Meta.KeyBindingFlags.IGNORE_AUTOREPEAT);
        if (action === Meta.KeyBindingAction.NONE)
            return 0;
        Main.wm.allowKeybinding(
            Meta.external_binding_name_for_action(action), Shell.ActionMode.NORMAL);
        this._grabs.add(action);
        return action;
    }

    _ungrab(action) {
        if (!this._grabs.delete(action))
            return;
        Main.wm.allowKeybinding(
            Meta.external_binding_name_for_action(action), Shell.ActionMode.NONE);
        global.display.ungrab_accelerator(action);
    }

    _setBlocking(isBlocking) {
        this._isBlocking = isBlocking;
        if (this._blockEnd)
            GLib.source_remove(this._blockEnd);
        this._blockEnd = !isBlocking ? 0
            : GLib.timeout_add(GLib.PRIORITY_DEFAULT, longestBlock, () => {
                this._blockEnd = 0;
                this._isBlocking = false;
                return GLib.SOURCE_REMOVE;
            });
    }
}

// The desk of whoever owns Corvane's name on the bus.
class Reception {
    constructor() {
        this._desk = null;
        this._watch = Gio.bus_watch_name_on_connection(Gio.DBus.session, home.name,
            Gio.BusNameWatcherFlags.NONE, (_connection, _name, owner) => {
                this._end();
                this._desk = new Desk(owner);
            }, () => this._end());
    }

    destroy() {
        Gio.bus_unwatch_name(this._watch);
        this._end();
    }

    _end() {
        this._desk?.destroy();
        this._desk = null;
    }
}
