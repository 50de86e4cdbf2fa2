# SPDX-License-Identifier: MIT
"""A session manager that a test can inspect (X Session Management Protocol, implemented with the
library that real session managers use)."""
import ctypes
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

from gi.repository import GLib

SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2
RESTART_NEVER = 3
ERROR_LENGTH = 256


class Value(ctypes.Structure):
    _fields_ = [("length", c_int), ("data", c_void_p)]


class Property(ctypes.Structure):
    _fields_ = [("name", c_char_p), ("type", c_char_p), ("count", c_int),
                ("values", POINTER(Value))]


class Callback(ctypes.Structure):
    _fields_ = [("function", c_void_p), ("data", c_void_p)]


# A client's requests to the session manager, in the order of the library's table.
REQUESTS = {
    "register_client": CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p),
    "interact_request": CFUNCTYPE(None, c_void_p, c_void_p, c_int),
    "interact_done": CFUNCTYPE(None, c_void_p, c_void_p, c_int),
    "save_yourself_request": CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_int, c_int, c_int, c_int),
    "save_yourself_phase2_request": CFUNCTYPE(None, c_void_p, c_void_p),
    "save_yourself_done": CFUNCTYPE(None, c_void_p, c_void_p, c_int),
    "close_connection": CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p),
    "set_properties": CFUNCTYPE(None, c_void_p, c_void_p, c_int, POINTER(POINTER(Property))),
    "delete_properties": CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p),
    "get_properties": CFUNCTYPE(None, c_void_p, c_void_p),
}
CallbackTable = Callback * len(REQUESTS)
NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(CallbackTable),
                      c_void_p)
Admission = CFUNCTYPE(c_int, c_void_p)
ErrorHandler = CFUNCTYPE(None, c_void_p)


def libraries():
    ice, sm = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
    ice.IceComposeNetworkIdList.restype = c_char_p
    ice.IceAcceptConnection.restype = c_void_p
    sm.SmsGenerateClientID.restype = c_void_p
    sm.SmsGetIceConnection.restype = c_void_p
    return ice, sm


class SessionManager:
    """Serves one client at a time from the GLib main loop and records what the client does."""

    def __init__(self):
        self.ice, self.sm = libraries()
        self.connection = None  # of the client that registered last
        self.saves = 0  # how often it said that it has finished saving
        self.interactions = 0  # how often it asked to interact with the user
        self.has_cancelled = False  # whether it has cancelled the logout
        self.restart_style = None
        self._keep_callbacks()
        error = ctypes.create_string_buffer(ERROR_LENGTH)
        if not self.sm.SmsInitialize(b"Tovla's tests", b"1", self.new_client, None, self.admission,
                                     ERROR_LENGTH, error):
            raise RuntimeError(error.value.decode())
        self.ice.IceSetIOErrorHandler(self.error_handler)
        self._listen()

    def _keep_callbacks(self):
        """C code does not keep Python functions alive."""
        self.admission = Admission(lambda _host: 1)
        self.error_handler = ErrorHandler(lambda _connection: None)
        self.new_client = NewClient(self._fill_table)
        self.requests = [kind(getattr(self, "_" + name, lambda *_: None))
                         for name, kind in REQUESTS.items()]

    def _fill_table(self, _connection, _data, mask, table, _reason):
        mask[0] = (1 << len(REQUESTS)) - 1
        for index, request in enumerate(self.requests):
            table[0][index].function = ctypes.cast(request, c_void_p).value
        return 1

    def _listen(self):
        count, listeners = c_int(), POINTER(c_void_p)()
        error = ctypes.create_string_buffer(ERROR_LENGTH)
        if not self.ice.IceListenForConnections(byref(count), byref(listeners), ERROR_LENGTH,
                                                error):
            raise RuntimeError(error.value.decode())
        for listener in map(c_void_p, listeners[:count.value]):
            self.ice.IceSetHostBasedAuthProc(listener, self.admission)
            GLib.io_add_watch(self.ice.IceGetListenConnectionNumber(listener), GLib.PRIORITY_DEFAULT,
                              GLib.IO_IN, self._accept, listener)
        self.address = self.ice.IceComposeNetworkIdList(count, listeners).decode()

    def _accept(self, _descriptor, _condition, listener):
        status = c_int()
        connection = c_void_p(self.ice.IceAcceptConnection(listener, byref(status)))
        if connection:
            GLib.io_add_watch(self.ice.IceConnectionNumber(connection),
                              GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, self._process,
                              connection)
        return True

    def _process(self, _descriptor, _condition, connection):
        succeeded, line_broke = 0, 1
        status = self.ice.IceProcessMessages(connection, None, None)
        if status == line_broke:
            self._close(connection)
        return status == succeeded

    def _register_client(self, connection, _data, previous):
        if previous:
            return 0
        identifier = c_void_p(self.sm.SmsGenerateClientID(c_void_p(connection)))
        self.sm.SmsRegisterClientReply(c_void_p(connection), identifier)
        self.connection = c_void_p(connection)
        self.saves = self.interactions = 0
        self.has_cancelled = False
        self.restart_style = None
        # The protocol makes each new client save once.
        self.sm.SmsSaveYourself(self.connection, SAVE_LOCAL, 0, INTERACT_NONE, 0)
        return 1

    def _interact_request(self, connection, _data, _kind):
        self.interactions += 1
        self.sm.SmsInteract(c_void_p(connection))

    def _interact_done(self, _connection, _data, cancels):
        self.has_cancelled = bool(cancels)
        if cancels:
            self.cancel()

    def _save_yourself_done(self, _connection, _data, success):
        self.saves += success

    def _set_properties(self, _connection, _data, count, properties):
        for index in range(count):
            one = properties[index].contents
            if one.name == b"RestartStyleHint":
                self.restart_style = ctypes.string_at(one.values[0].data, 1)[0]

    def _close_connection(self, connection, _data, _count, _reasons):
        line = c_void_p(self.sm.SmsGetIceConnection(c_void_p(connection)))
        self.sm.SmsCleanUp(c_void_p(connection))
        self._close(line)

    def _close(self, line):
        self.ice.IceSetShutdownNegotiation(line, 0)
        self.ice.IceCloseConnection(line)

    def ask_to_save(self, interact=INTERACT_ANY):
        """The first half of a logout: clients may still ask the user, who can cancel it."""
        self.sm.SmsSaveYourself(self.connection, SAVE_BOTH, 1, interact, 0)

    def ask_to_die(self):
        """The second half, once every client has saved."""
        self.sm.SmsDie(self.connection)

    def cancel(self):
        """Cancels the logout, as when the user cancels it in another program."""
        self.sm.SmsShutdownCancelled(self.connection)
