"""The request inspector: what it shows of a request, and of one that cannot be read."""

import unittest

from support.site_case import SiteCase

PAGE = "/common/request.cgi"


class Inspector(SiteCase):
    def test_nothing_a_person_typed_becomes_markup(self):
        evil = b"<img src=x onerror=alert(1)>\"'&"
        for answer in (self.client.post(PAGE, {evil: evil}),
                       self.client.upload(PAGE, {b"comment": evil}, evil.replace(b'"', b""), b"x")):
            self.assertEqual(answer.status, 200)
            self.assertNotIn(b"<img", answer.body)

    def test_a_request_that_cannot_be_read_is_refused(self):
        answer = self.client.request("POST", PAGE, "x=%4")
        self.assertEqual(answer.status, 400)
        self.assertIn(b"The&nbsp;request&nbsp;could&nbsp;not&nbsp;be&nbsp;read.", answer.body)
        self.assertIn("escape", self.trace_log())


if __name__ == "__main__":
    unittest.main()
