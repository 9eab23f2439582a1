"""An SMS gateway over HTTPS, with certificates that openssl made."""

import hashlib
import http.server
import shutil
import ssl
import subprocess
import tempfile
import threading
import urllib.parse

LONG_AGO = ('20200101000000Z', '20200201000000Z')
TODAY = ('20250101000000Z', '20991231000000Z')


class Authority:
    """Who signs certificates. Windows trusts it once its registry says so."""

    def __init__(self, windows):
        self.folder = tempfile.mkdtemp(prefix='tellwick-https')
        self.windows = windows
        self.trusted = []
        for name, text in (('index', ''), ('serial', '01'), ('conf', f'''
[ca]
default_ca = own
[own]
dir = {self.folder}
database = $dir/index
serial = $dir/serial
new_certs_dir = $dir
default_md = sha256
unique_subject = no
policy = any
copy_extensions = copy
[any]
commonName = supplied
''')):
            with open(f'{self.folder}/{name}', 'w', encoding='ascii') as file:
                file.write(text)
        self.openssl('req', '-x509', '-newkey', 'rsa:2048', '-nodes', '-keyout', 'ca.key', '-out',
                     'ca.crt', '-days', '3650', '-subj', '/CN=Tellwick test authority')

    def close(self):
        shutil.rmtree(self.folder)
        for key in self.trusted:
            self.windows.run('reg', 'delete', key, '/f')

    def openssl(self, *words):
        subprocess.run(['openssl', *words], cwd=self.folder, check=True, capture_output=True)

    def certificate(self, name, times=TODAY):
        """Of a server of that name; the files of certificate and key."""
        self.openssl('req', '-newkey', 'rsa:2048', '-nodes', '-keyout', 'server.key', '-out',
                     'server.csr', '-subj', f'/CN={name}', '-addext', f'subjectAltName=DNS:{name}')
        self.openssl('ca', '-batch', '-config', 'conf', '-in', 'server.csr', '-cert', 'ca.crt',
                     '-keyfile', 'ca.key', '-out', 'server.crt', '-notext', '-startdate', times[0],
                     '-enddate', times[1])
        return [shutil.copy(f'{self.folder}/server.{kind}', f'{self.folder}/{name}-{times[0]}.{kind}')
                for kind in ('crt', 'key')]

    def trust(self):
        self.openssl('x509', '-in', 'ca.crt', '-outform', 'der', '-out', 'ca.der')
        with open(f'{self.folder}/ca.der', 'rb') as file:
            encoded = file.read()
        number = hashlib.sha1(encoded).hexdigest().upper()
        # A property of the certificate: its number (32: the certificate itself), 1, length, bytes.
        blob = b''.join(part.to_bytes(4, 'little') for part in (32, 1, len(encoded))) + encoded
        for root in ('HKCU', 'HKLM'):
            key = rf'{root}\Software\Microsoft\SystemCertificates\Root\Certificates\{number}'
            self.trusted.append(key)
            self.windows.run('reg', 'add', key, '/v', 'Blob', '/t', 'REG_BINARY', '/d', blob.hex(),
                             '/f')


class Gateway:
    """Takes every SMS, and keeps recipient and text."""

    def __init__(self, certificate):
        gateway = self
        self.received = []

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = 'HTTP/1.1'

            def do_GET(self):
                fields = urllib.parse.parse_qs(urllib.parse.urlsplit(self.path).query)
                gateway.received.append((fields['to'][0], fields['text'][0]))
                self.send_response(202)
                self.send_header('Content-Length', '0')
                self.end_headers()

            def log_message(self, *words):
                pass

        self.server = http.server.ThreadingHTTPServer(('127.0.0.1', 0), Handler)
        self.server.handle_error = lambda *words: None  # a client that turns away
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*certificate)
        self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def settings(self):
        address = f'https://127.0.0.1:{self.server.server_port}/?to={{to}}&text={{text}}'
        return {'Sender': {'Gateway': 1, 'Address': address}}

    def close(self):
        self.server.shutdown()
        self.server.server_close()
