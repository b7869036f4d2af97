"""Sample pictures, and pictures as the bytes of files."""

import io

from PIL import Image


def encoded(image, form='PNG', **options):
    file = io.BytesIO()
    image.save(file, form, **options)
    return file.getvalue()


def decoded(data):
    return Image.open(io.BytesIO(data))


def plain(colour, width, height):
    return Image.new('RGB', (width, height), colour)


def noise(width, height):
    return Image.effect_noise((width, height), 50).convert('RGB')
