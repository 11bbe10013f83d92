package android.content.res;

import java.io.ByteArrayInputStream;
import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import javax.xml.stream.XMLInputFactory;
import javax.xml.stream.XMLStreamException;
import javax.xml.stream.XMLStreamReader;

/** A resource in its source. */
final class XmlFile implements XmlResourceParser {
    private final XMLStreamReader reader;

    XmlFile(File file) {
        try {
            byte[] bytes = Files.readAllBytes(file.toPath());
            reader =
                    XMLInputFactory.newInstance()
                            .createXMLStreamReader(new ByteArrayInputStream(bytes));
        } catch (IOException | XMLStreamException e) {
            throw new Resources.NotFoundException(e.toString());
        }
    }

    /** The text of the element, which ends. */
    String text() throws XMLStreamException {
        return reader.getElementText();
    }

    @Override
    public int next() {
        try {
            while (reader.hasNext()) {
                reader.next();
                if (reader.isStartElement() || reader.isEndElement()) {
                    return reader.isStartElement() ? START_TAG : END_TAG;
                }
            }
            return END_DOCUMENT;
        } catch (XMLStreamException e) {
            throw new IllegalStateException(e);
        }
    }

    @Override
    public String getName() {
        return reader.getLocalName();
    }

    @Override
    public String getAttributeValue(String namespace, String name) {
        return reader.getAttributeValue(namespace, name);
    }

    @Override
    public void close() {}
}
