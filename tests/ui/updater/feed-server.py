"""Serves a folder over https on a free port of this machine, and some misbehaviour.

usage: feed-server.py CERTIFICATE KEY FOLDER

The first line of the output is the port; each request adds a line with its path and the headers
that tell about the one who asks.
"""

import http.server
import itertools
import ssl
import sys
import time

certificate, key, folder = sys.argv[1:]


class Handler(http.server.SimpleHTTPRequestHandler):
    def __init__(self, *arguments):
        super().__init__(*arguments, directory=folder)

    def log_message(self, *arguments):
        pass

    def redirect(self, address):
        self.send_response(302)
        self.send_header("Location", address)
        self.send_header("Set-Cookie", "known=yes")
        self.end_headers()

    def send_pieces(self, pieces, pause=0.0):
        self.send_response(200)
        self.end_headers()
        for piece in pieces:
            self.wfile.write(piece)
            time.sleep(pause)

    def do_GET(self):
        print(self.path, self.headers["User-Agent"], self.headers["Cookie"], flush=True)
        host = self.headers["Host"]
        if self.path == "/to-newer":
            self.redirect(f"https://{host}/newer.xml")
        elif self.path == "/to-http":
            self.redirect(f"http://{host}/newer.xml")
        elif self.path == "/endless":
            self.send_pieces(itertools.repeat(b"<rss>" * 10_000))
        elif self.path == "/slow":
            with open(folder + "/newer.xml", "rb") as feed:
                self.send_pieces(feed.readlines(), pause=0.2)
        elif self.path == "/silent":
            time.sleep(60)
        else:
            super().do_GET()


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
server.daemon_threads = True
context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
context.load_cert_chain(certificate, key)
server.socket = context.wrap_socket(server.socket, server_side=True)
print(server.server_port, flush=True)
server.serve_forever()
