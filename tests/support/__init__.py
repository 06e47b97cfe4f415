"""Code that only tests use."""
