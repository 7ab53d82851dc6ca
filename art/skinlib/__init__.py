"""The parts that the skins' pictures are drawn with."""
