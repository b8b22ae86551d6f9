"""Signs in, stores a message, reads it back by a statement and hears of it by push, all through Thrift's Python library."""

import base64
import json
import os
import subprocess
import unittest
from contextlib import closing

from thrift.Thrift import TApplicationException
from thrift.transport.TTransport import TTransportException

from wireclient import WireClient
from zelwire.common.ttypes import VelaIpcArg, ZelBoxAsynCommandLineArg
from zelwire.message.ttypes import NewMessageContent, NewMessageItem, StoreZelBoxMessageArg

READ_ONE_ID = ("select * from metadata_zelbox_filemessage where fileId = '{}' and (topic = 'zel.file' or "
               "topic = 'zel.link' or topic = 'zel.link.local') Order by time Desc limit 10")
TITLE = "价格 $$$$ #### \\ 'x'"  # marks of the row format, and a script other than Latin


class Interop(unittest.TestCase):
    def setUp(self):
        ready, reported = os.pipe()
        self.service = subprocess.Popen(
            [os.environ["ZEL_CLOUD"], "--ready-fd", str(reported)], pass_fds=[reported])
        os.close(reported)
        self.assertEqual(len(os.read(ready, 1)), 1, "the service is ready")
        os.close(ready)
        self.path = os.path.join(os.environ["XDG_RUNTIME_DIR"], "zelbox", "cloud.sock")

    def tearDown(self):
        self.service.terminate()
        self.assertEqual(self.service.wait(20), 0)

    def test_message_there_and_back(self):
        with closing(WireClient(self.path)) as client, closing(WireClient(self.path)) as listener:
            self.assertEqual(client.handshake().state, 0)
            self.assertEqual(listener.handshake().state, 0)

            login = client.call("getLoginInfo", [])
            self.assertEqual(login.state, 0)
            self.assertTrue(login.resultMap["userId"])
            self.assertEqual(len(login.resultMap["loginInfo"].split("|")), 5)

            stored = client.call("storeZelBoxMessage", self.message())
            self.assertEqual(stored.state, 0)
            self.assertEqual(stored.messageId, "m1")
            for end in (client, listener):
                end.wait_for_push("notifyActionsMap", lambda push: "NewMsgArrive" in push.actionsMap)

            statement = base64.b64encode(READ_ONE_ID.format("file1").encode()).decode()
            taken = client.call("zelBoxAsynCommandLine", ZelBoxAsynCommandLineArg(
                commandline=f"/GetStoredMsg={statement} /TaskGuid=guid1$$$$file1", extraParam={}))
            self.assertEqual(taken.state, 0)
            push = client.wait_for_push(
                "notifyActionsMap", lambda push: any("guid1" in text for text in push.actionsMap.values()))
            [answer] = [json.loads(text) for text in push.actionsMap.values() if "guid1" in text]
            self.assertEqual(answer["guid"], "guid1$$$$file1")
            rows = answer["commandline"].split("####")
            self.assertEqual(len(rows), 1)
            self.assertIn("m1", rows[0].split("$$$$"))
            self.assertIn(TITLE.replace("\\", "\\\\").replace("$", "\\d").replace("#", "\\h"), rows[0].split("$$$$"))

    @staticmethod
    def message():
        content = NewMessageContent(title=TITLE, content="shared with you", summary="", url="", iconUrl="", buttons=[],
                                    ext="", extraParam={})
        item = NewMessageItem(
            messageId="m1", category="share", topic="zel.file", type="share", time=1700000000000, fileId="file1",
            fileName="Offer.docx", filePath="", groupId="", groupName="", parentId="", companyId="", linkSid="",
            operatorId="u2", operatorName="Ada", operatorAvatar="", deviceId="", deviceName="", fileVersion=1,
            bRead=False, trayRead=False, recentRead=False, waitForUpdate=False, msgContent=content, extraParam={})
        return StoreZelBoxMessageArg(category="share", message=item, replaceExisting=False, extraParam={})

    def test_other_version_is_told_and_refused(self):
        with closing(WireClient(self.path)) as client:
            answer = client.handshake(version=99)
            self.assertEqual(answer.errorInfo.errResult, "versionMismatch")
            self.assertIn("99", answer.errorInfo.errString)
            with self.assertRaises(TTransportException):
                client.call("getLoginInfo", [])

    def test_nothing_before_the_handshake(self):
        with closing(WireClient(self.path)) as client, self.assertRaises((TApplicationException, TTransportException)):
            client.call("velaIpcCall", VelaIpcArg(nameSpace="KVelaIpcCallObj", method="cancelTask", argMap={}))
            client.call("getLoginInfo", [])


if __name__ == "__main__":
    unittest.main()
