"""A sample picture."""

from PIL import Image, ImageDraw


def landscape(width=640, height=480):
    """Hills under a sky: large areas, edges and a gradient."""
    image = Image.new('RGB', (width, height))
    draw = ImageDraw.Draw(image)
    for y in range(height):
        shade = y / height
        draw.line([(0, y), (width, y)], (int(70 + 130 * shade), int(150 + 80 * shade), 245))
    draw.ellipse([width * .72, height * .1, width * .85, height * .1 + width * .13], '#ffd25e')
    draw.polygon([(0, height), (width * .3, height * .4), (width * .65, height)], '#57ad72')
    draw.polygon([(width * .35, height), (width * .68, height * .52), (width, height)], '#3f8f5b')
    for x in range(0, width, max(8, width // 40)):
        draw.line([(x, height * .92), (x, height)], '#2d6b45', 2)
    return image
