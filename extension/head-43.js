const {Gio, GLib, Meta, Shell} = imports.gi;
const Main = imports.ui.main;

