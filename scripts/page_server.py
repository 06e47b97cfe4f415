"""Keeps the page server of a console running: to be written below."""
class PageServer:
    pass
