
export default class CorvaneExtension extends Extension {
    enable() {
        this._reception = new Reception();
    }

    disable() {
        this._reception.destroy();
        this._reception = null;
    }
}
