"""A file server on loopback for the tests: ftp_server.py FOLDER [CERTIFICATE]. Prints its port."""
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

handler = FTPHandler
if len(sys.argv) > 2:
    from pyftpdlib.handlers import TLS_FTPHandler as handler
    handler.certfile = sys.argv[2]
    handler.tls_control_required = True
users = DummyAuthorizer()
users.add_user('lab', 'segredo', sys.argv[1], perm='elradfmwMT')
handler.authorizer = users
handler.auth_failed_timeout = 0
server = FTPServer(('127.0.0.1', 0), handler)
print(server.address[1], flush=True)
server.serve_forever()
