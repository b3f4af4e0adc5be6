
class CorvaneExtension {
    enable() {
        this._reception = new Reception();
    }

    disable() {
        this._reception.destroy();
        this._reception = null;
    }
}

// GNOME 43 and 44 call this by its name.
function init() {
    return new CorvaneExtension();
}
