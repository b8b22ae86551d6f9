"""A client of the cloud service, made of Thrift's own Python library and the code generated from the description."""

from thrift.Thrift import TApplicationException, TMessageType
from thrift.protocol.TBinaryProtocol import TBinaryProtocol
from thrift.transport.TSocket import TSocket
from thrift.transport.TTransport import TFramedTransport

from zelwire.common.ttypes import GetVersionArg
from zelwire.vela import Vela, VelaEvents

PROTOCOL_VERSION = 1


class PushRecorder:
    """Handler of every push: keeps its name and record."""

    def __init__(self):
        self.pushes = []

    def __getattr__(self, name):
        return lambda record: self.pushes.append((name, record))


class WireClient:
    def __init__(self, path, timeout_ms=20000):
        socket = TSocket(unix_socket=path)
        socket.setTimeout(timeout_ms)
        self._transport = TFramedTransport(socket)
        self._protocol = TBinaryProtocol(self._transport, strictRead=True, strictWrite=True)
        self._transport.open()
        self._client = Vela.Client(self._protocol)
        self._recorder = PushRecorder()
        self._events = VelaEvents.Processor(self._recorder)

    def handshake(self, version=PROTOCOL_VERSION):
        return self.call("getVersion", GetVersionArg(
            protocolVersion=version, clientName="interop", clientVersion="1", processId=0, extraParam={}))

    def call(self, method, argument):
        """Sends one request and reads until its answer; pushes that come before it are kept."""
        getattr(self._client, "send_" + method)(argument)
        while True:
            name, kind, sequence = self._protocol.readMessageBegin()
            if kind == TMessageType.ONEWAY:
                self._take_push(name, sequence)
                continue
            if kind == TMessageType.EXCEPTION:
                refusal = TApplicationException()
                refusal.read(self._protocol)
                self._protocol.readMessageEnd()
                raise refusal
            assert (name, kind) == (method, TMessageType.REPLY), (name, kind)
            result = getattr(Vela, method + "_result")()
            result.read(self._protocol)
            self._protocol.readMessageEnd()
            return result.success

    def wait_for_push(self, method, wanted=lambda record: True):
        """The first push of that name that is wanted, from those that came already or from the next ones."""
        seen = 0
        while True:
            for name, record in self._recorder.pushes[seen:]:
                seen += 1
                if name == method and wanted(record):
                    return record
            name, kind, sequence = self._protocol.readMessageBegin()
            assert kind == TMessageType.ONEWAY, (name, kind)
            self._take_push(name, sequence)

    def _take_push(self, name, sequence):
        self._events._processMap[name](self._events, sequence, self._protocol, self._protocol)

    def close(self):
        self._transport.close()
