#!/usr/bin/env python3
"""The sender with a gateway over HTTPS."""

import shutil
import unittest

import sender_tests
from https import LONG_AGO, Authority, Gateway
from machine import wait_until


class Https(sender_tests.SenderTest):
    def sends(self, certificate):
        """Why it does not; nothing where it does."""
        gateway = Gateway(certificate)
        self.addCleanup(gateway.close)
        windows = self.windows
        windows.write_settings(gateway.settings())
        windows.start('nocheck')
        windows.submit(('0171', 'eins'))
        reasons = lambda: [values.get('Reason') for values, _ in windows.spool('waiting')]
        self.assertTrue(wait_until(lambda: windows.count('sent') or any(reasons())))
        windows.end()
        self.assertEqual(len(gateway.received), windows.count('sent'))
        found = reasons()
        shutil.rmtree(f'{windows.folder}/Spool')
        return found

    def test_a_certificate_has_to_be_trusted_valid_and_the_servers(self):
        self.begin({})
        authority = Authority(self.windows)
        self.addCleanup(authority.close)
        right = authority.certificate('127.0.0.1')
        self.assertEqual(self.sends(right), ['NotTrusted'])
        authority.trust()
        self.assertEqual(self.sends(right), [])
        self.assertEqual(self.sends(authority.certificate('other.example')), ['NotTrusted'])
        self.assertEqual(self.sends(authority.certificate('127.0.0.1', LONG_AGO)), ['NotTrusted'])


if __name__ == '__main__':
    unittest.main()
