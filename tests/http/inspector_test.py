"""The request inspector: every way a form can be sent, byte for byte."""

import glob
import hashlib
import random
import unittest

from site_case import SiteCase

PAGE = "/common/request.cgi"
UPLOADS = "/var/tmp/tmp_*"
UPLOAD_LIMIT = 94372352


class Inspector(SiteCase):
    def test_nothing_a_person_typed_becomes_markup(self):
        evil = b"<img src=x onerror=alert(1)>\"'&"
        for answer in (self.client.post(PAGE, {evil: evil}),
                       self.client.upload(PAGE, {b"comment": evil}, evil.replace(b'"', b""), b"x")):
            self.assertEqual(answer.status, 200)
            self.assertNotIn(b"<img", answer.body)

    def test_uploads_arrive_whole_and_leave_nothing(self):
        noise = random.Random(7)
        before = set(glob.glob(UPLOADS))
        for size in (0, 1, 65535, 65536, 65537, 3 * 1024 * 1024, UPLOAD_LIMIT, UPLOAD_LIMIT + 1):
            with self.subTest(size=size):
                content = noise.randbytes(size)
                rows = self.client.upload(PAGE, {b"comment": b"c"}, b"C:\\dir\\fw <1>.bin",
                                          content).rows()
                kept = content[:UPLOAD_LIMIT]
                self.assertEqual(rows.get(b"File name"), b"fw <1>.bin")
                self.assertEqual(rows.get(b"Size"), b"%d bytes" % len(kept))
                self.assertEqual(rows.get(b"SHA-256"), hashlib.sha256(kept).hexdigest().encode())
                self.assertEqual(rows.get(b"comment"), b"c")
        self.assertEqual(set(glob.glob(UPLOADS)) - before, set())

    def test_pages_speak_the_language_that_was_asked_for(self):
        for language, charset, heading in (
                ("1", "iso-8859-1", "<h1>Request&nbsp;Inspector</h1>".encode("latin-1")),
                ("0", "EUC-JP", "<h1>リクエスト検査</h1>".encode("euc-jp")),
                ("x", "iso-8859-1", b"<h1>Request&nbsp;Inspector</h1>")):
            answer = self.client.get(f"{PAGE}?language={language}")
            self.assertEqual(answer.headers["content-type"], "text/html; charset=" + charset)
            self.assertIn(heading, answer.body)

    def test_a_request_that_cannot_be_read_is_refused(self):
        answer = self.client.request("POST", PAGE, "x=%4")
        self.assertEqual(answer.status, 400)
        self.assertIn(b"The&nbsp;request&nbsp;could&nbsp;not&nbsp;be&nbsp;read.", answer.body)
        self.assertIn("escape", self.trace_log())


if __name__ == "__main__":
    unittest.main()
