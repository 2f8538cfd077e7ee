"""Prints what another program finds in a family file: a list of [type, id, attributes, relationships] as JSON."""
import json
import sys
import xml.etree.ElementTree as ElementTree

root = ElementTree.parse(sys.argv[1]).getroot()
objects = [
    [
        element.get("type"),
        element.get("id"),
        {attribute.get("name"): attribute.text or "" for attribute in element.findall("attribute")},
        {link.get("name"): link.get("idrefs") for link in element.findall("relationship")},
    ]
    for element in root.findall("object")
]
json.dump(objects, sys.stdout)
